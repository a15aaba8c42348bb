#include "settings/frmDLINKOptions.h"

#include <algorithm>

#include "text/text.h"

namespace quillmark {

frmDLINKOptions::frmDLINKOptions(Platform& machine, frmOrvalent& window, Conversation& talk)
    : OptionWindow("frmDLINKOptions", machine, window, talk),
      InfoLabel(*this, this, "InfoLabel"),
      OnOption{{{*this, this, "OnOption_0", "Diagnostic Link Enabled"},
                {*this, this, "OnOption_1", "Diagnostic Link Disabled"}}},
      BaudFrame(*this, this, "BaudFrame", "Baud Rate"),
      BaudRate{{{*this, &BaudFrame, "BaudRate_0", "1200"},
                {*this, &BaudFrame, "BaudRate_1", "2400"},
                {*this, &BaudFrame, "BaudRate_2", "4800"},
                {*this, &BaudFrame, "BaudRate_3", "9600"},
                {*this, &BaudFrame, "BaudRate_4", "19200"},
                {*this, &BaudFrame, "BaudRate_5", "38400"},
                {*this, &BaudFrame, "BaudRate_6", "57600"},
                {*this, &BaudFrame, "BaudRate_7", "115200"}}},
      OKButton(*this, this, "OKButton", "Program Settings"),
      CancelButton(*this, this, "CancelButton", "Cancel") {
  Caption = "Diagnostic Link Options";
  OKButton.OnClick = Handler([this] { OKButton_Click(); });
  CancelButton.OnClick = Handler([this] { Unload(); });
  Form_Load();
}

void frmDLINKOptions::Form_Load() {
  InfoLabel.Text =
      "Select the baud rate for the diagnostic link,\rand select if the diagnostic link should be "
      "enabled.";
  const std::string now = main.At(SettingId::DLINK).Text();
  OnOption[Holds(now, "ON") ? 0 : 1].SetChecked(true);
  const auto rate =
      std::find_if(BaudRate.begin(), BaudRate.end(),
                   [&now](const OptionButton& each) { return Holds(now, each.Text()); });
  if (rate != BaudRate.end()) rate->SetChecked(true);
}

void frmDLINKOptions::OKButton_Click() {
  Send(OnOption[0].Checked() ? "dlink on" : "dlink off", 100);
  for (const OptionButton& rate : BaudRate) {
    if (rate.Checked()) Send("dlink " + rate.Text());
  }
  Unload();
}

}  // namespace quillmark
