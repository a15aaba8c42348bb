#pragma once

#include <array>

#include "controls/clickable.h"
#include "controls/option_button.h"
#include "controls/text_box.h"
#include "settings/option_window.h"

namespace quillmark {

// Switches the software RTU on or off and sets its id. Modal, opened at a click on the SoftRTU row.
class frmRTUOptions : public OptionWindow {
 public:
  frmRTUOptions(Platform& platform, frmOrvalent& main, Conversation& radio);

  quillmark::Label InfoLabel;
  std::array<OptionButton, 2> OnOption;
  quillmark::Label Label;
  TextBox RTUID;
  Button OKButton, CancelButton;

 private:
  void Form_Load();
  void OKButton_Click();
};

}  // namespace quillmark
