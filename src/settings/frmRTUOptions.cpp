#include "settings/frmRTUOptions.h"

#include <cmath>

#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

// Only a whole number counts.
bool IsRtuId(std::string_view text) {
  const SettingValue& allowed = SettingOf(SettingId::SoftRTU).Value;
  const auto number = NumericValue(text);
  return number && *number >= *allowed.Least && *number <= *allowed.Most &&
         std::floor(*number) == *number;
}

}  // namespace

frmRTUOptions::frmRTUOptions(Platform& machine, frmOrvalent& window, Conversation& talk)
    : OptionWindow("frmRTUOptions", machine, window, talk),
      InfoLabel(*this, this, "InfoLabel"),
      OnOption{{{*this, this, "OnOption_0", "Software RTU Enabled"},
                {*this, this, "OnOption_1", "Software RTU Disabled"}}},
      Label(*this, this, "Label", "Enter the RTU ID (0 - 80):"),
      RTUID(*this, this, "RTUID"),
      OKButton(*this, this, "OKButton", "Program Settings"),
      CancelButton(*this, this, "CancelButton", "Cancel") {
  Caption = "Software RTU Options";
  OKButton.OnClick = Handler([this] { OKButton_Click(); });
  CancelButton.OnClick = Handler([this] { Unload(); });
  Form_Load();
}

void frmRTUOptions::Form_Load() {
  InfoLabel.Text = "Select if software RTU should be enabled,\rand what RTU id should be used.";
  const std::string now = main.At(SettingId::SoftRTU).Text();
  OnOption[Holds(now, "ON") ? 0 : 1].SetChecked(true);
  // "RTU 7 (OFF)" or "RTU 17 (OFF)".
  const std::string id = Mid(now, 5, 2).value_or("");
  RTUID.Text = Holds(id, " ") ? id.substr(0, 1) : id;
}

void frmRTUOptions::OKButton_Click() {
  Send(OnOption[0].Checked() ? "rtu on" : "rtu off", 100);
  if (IsRtuId(RTUID.Text())) {
    Send("rtu " + RTUID.Text());
  } else {
    platform.Dialogs.Message(
        {"The RTU ID must be a number between 0 and 80, inclusive.", "Error", Icon::Information});
  }
  Unload();
}

}  // namespace quillmark
