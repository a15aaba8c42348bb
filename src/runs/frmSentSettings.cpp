#include "runs/frmSentSettings.h"

namespace quillmark {

frmSentSettings::frmSentSettings(const std::string& sentence, const std::string& table)
    : Form("frmSentSettings"),
      lblSentence(*this, this, "lblSentence", sentence),
      txtTable(*this, this, "txtTable", table),
      cmdClose(*this, this, "cmdClose", "Close") {
  Caption = "Settings Sent";
  cmdClose.OnClick = [this] { Unload(); };
}

}  // namespace quillmark
