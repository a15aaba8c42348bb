#pragma once

#include "controls/form.h"
#include "controls/text_box.h"

namespace quillmark {

// The manual, beside the other windows. What it shows is the view's business.
class frmHelp : public Form {
 public:
  frmHelp() : Form("frmHelp"), Page(*this, this, "Page") { Caption = "Quillmark Console Manual"; }

  // The name of the page that is shown; empty for the first.
  TextBox Page;
};

}  // namespace quillmark
