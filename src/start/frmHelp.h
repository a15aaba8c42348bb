#pragma once

#include "controls/form.h"

namespace quillmark {

// The manual, beside the other windows. What it shows is the view's business.
class frmHelp : public Form {
 public:
  frmHelp() : Form("frmHelp") { Caption = "Quillmark Console Manual"; }
};

}  // namespace quillmark
