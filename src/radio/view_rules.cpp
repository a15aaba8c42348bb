#include "radio/view_rules.h"

#include "text/text.h"

namespace quillmark {

void ApplyRevisionRules(frmOrvalent& main, const Revision& revision) {
  for (SettingRow& row : main.Rows) {
    const Setting& setting = row.What;
    if (setting.Revisions.Gated()) row.Show(setting.Revisions.HoldsBelowIfUnknown(revision));
    if (setting.View.Threshold > 0) {
      const bool below = !revision.AtLeast(setting.View.Threshold);
      row.MoveTo(below ? setting.View.TopBelow : setting.View.Top);
    }
  }
}

void ApplyModeRules(frmOrvalent& main, bool inSetupMode) {
  const bool master = IsOneOf(Modes::Master, main.ModeText());
  main.ButtonRSSI.Enabled = !master || inSetupMode;
  for (SettingRow& row : main.Rows) {
    const Modes modes = row.What.View.Clicked;
    // A row that the revision hides stays disabled.
    if (modes != Modes::All) row.AllowClick(IsOneOf(modes, main.ModeText()) && row.Shown());
  }
}

}  // namespace quillmark
