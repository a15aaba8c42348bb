#pragma once

#include <string>

#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"

namespace quillmark {

// Shows the text of a preset to read. Modal.
class frmViewer : public Form {
 public:
  frmViewer();

  TextBox txtViewer;  // read-only, lines end with CR LF
  Button cmdClose;
};

}  // namespace quillmark
