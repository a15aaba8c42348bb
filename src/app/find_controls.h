#pragma once

#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"

namespace quillmark {

// The bar of the main window that finds a setting; hidden until it is opened. Part of the main
// window, and as long-lived.
class FindControls {
 public:
  explicit FindControls(Form& form);

  Frame findStrip;
  Label lblFind;
  TextBox txtFind;
  Button cmdFindPrevious, cmdFindNext;
  Button cmdFindGo;  // to the row that was found
  Button cmdFindClose;
  Label lblFound;  // what was found, and which of how many
};

}  // namespace quillmark
