#pragma once

#include <array>

#include "controls/clickable.h"
#include "controls/option_button.h"
#include "settings/option_window.h"

namespace quillmark {

// Switches the diagnostic link on or off and sets its rate. Modal, opened at a click on the DLINK
// row.
class frmDLINKOptions : public OptionWindow {
 public:
  frmDLINKOptions(Platform& platform, frmOrvalent& main, Conversation& radio);

  Label InfoLabel;
  std::array<OptionButton, 2> OnOption;
  Frame BaudFrame;
  std::array<OptionButton, 8> BaudRate;
  Button OKButton, CancelButton;

 private:
  void Form_Load();
  void OKButton_Click();
};

}  // namespace quillmark
