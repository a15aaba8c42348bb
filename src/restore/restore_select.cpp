#include "restore/restore_select.h"

namespace quillmark {

namespace {

using Follows = RestoreRow::Follows;

struct TickedMode {
  const char* Mode;
  bool Master;
  bool Sleep;
};

constexpr TickedMode tickedModes[] = {
    {"MODE M", true, false},
    {"MODE R", false, true},
    {"MODE X", false, false},
};

}  // namespace

void FollowModeOfRadio(RestoreControls& controls) {
  const bool master = controls.ModeText() == "MODE M";
  for (RestoreRowControls& row : controls.Rows) {
    const Follows rule = row.Row.Mode;
    if (rule == Follows::NotMaster) row.Enable(!master);
    if (rule == Follows::Master || rule == Follows::MasterAndTick) row.Enable(master);
  }
}

void EnableLoadedRow(RestoreControls& controls, RestoreRowControls& row) {
  const std::string& mode = controls.ModeText();
  switch (row.Row.Mode) {
    case Follows::None:
      return row.EnableBox(true);
    case Follows::NotMaster:
      return row.Enable(mode != "MODE M");
    case Follows::NotRemoteAtLoad:
      return row.Enable(mode != "MODE R");
    case Follows::Master:
    case Follows::MasterAndTick:
      return row.Enable(mode == "MODE M");
  }
}

void ModeCheck_Click(RestoreControls& controls) {
  const RestoreRowControls& modeRow = controls.At(RestoreSetting::Mode);
  const std::string mode = modeRow.Check.Checked() ? modeRow.New.Text() : modeRow.Current.Text();
  for (const TickedMode& rule : tickedModes) {
    if (mode != rule.Mode) continue;
    for (RestoreRowControls& row : controls.Rows) {
      if (row.Row.Mode == Follows::MasterAndTick) row.Enable(rule.Master);
      if (row.Row.Mode == Follows::NotMaster) row.Enable(rule.Sleep);
    }
  }
}

void CheckEach(RestoreControls& controls, bool ticked) {
  for (RestoreRowControls& row : controls.Rows) {
    if (row.Check.Enabled()) row.Check.Checked = ticked;
  }
}

}  // namespace quillmark
