#include "settings/frmXMAP.h"

#include <utility>

#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

frmXMAP::frmXMAP(Platform& machine, Session& shared, frmOrvalent& window, Conversation& talk,
                 std::string text)
    : OptionWindow("frmXMAP", machine, window, talk),
      CurrentButton(*this, this, "CurrentButton", "Current"),
      CheckAllButton(*this, this, "CheckAllButton", "Check All"),
      UnCheckAllButton(*this, this, "UnCheckAllButton", "Uncheck All"),
      ProgramButton(*this, this, "ProgramButton", "Program Settings"),
      CloseButton(*this, this, "CloseButton", "Close"),
      session(shared),
      mapText(std::move(text)) {
  Caption = "XMAP Configuration";
  for (std::size_t i = 0; i < AddressCount; ++i) {
    Check1.emplace_back(*this, this, "Check1_" + std::to_string(i), std::to_string(i));
    Check1.back().OnClick = [this] { ProgramButton.Enabled = true; };
  }
  // Boxes that nobody has set say nothing about the radio and must not be programmed into it.
  ProgramButton.Enabled = !mapText.empty();
  CurrentButton.OnClick = Handler([this] { CurrentButton_Click(); });
  CheckAllButton.OnClick = Handler([this] { CheckEach(true); });
  UnCheckAllButton.OnClick = Handler([this] { CheckEach(false); });
  ProgramButton.OnClick = Handler([this] { ProgramButton_Click(); });
  CloseButton.OnClick = Handler([this] { Unload(); });
}

void frmXMAP::CurrentButton_Click() {
  const std::string map = HexToBin(mapText);
  for (std::size_t i = 1; i <= AddressCount; ++i) {
    const std::string digit = Mid(map, static_cast<std::ptrdiff_t>(33 - i), 1).value_or("");
    if (digit == "0") Check1[i - 1].Checked = false;
    if (digit == "1") Check1[i - 1].Checked = true;
  }
}

void frmXMAP::CheckEach(bool checked) {
  for (CheckBox& box : Check1) box.Checked = checked;
  ProgramButton.Enabled = true;
}

void frmXMAP::ProgramButton_Click() {
  std::string map;
  for (auto box = Check1.rbegin(); box != Check1.rend(); ++box) map += box->Checked() ? '1' : '0';
  Send("xmap " + BinToHex(map));
  session.AskForRead();
  Unload();
}

}  // namespace quillmark
