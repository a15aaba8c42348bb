#pragma once

#include <string>
#include <vector>

#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "session/session.h"

namespace quillmark {

// Shows the text of a preset to read, and which of its lines a radio will not take. Modal.
class frmViewer : public Form {
 public:
  frmViewer();

  TextBox txtViewer;  // read-only, lines end with CR LF
  Label lblProblems;  // hidden while there are none
  Button cmdClose;

  // `revision` is that of the radio that the preset would go to.
  void ShowLines(const std::vector<std::string>& lines, const Revision& revision);

 private:
  void ShowProblems(const std::vector<std::string>& lines, const Revision& revision);
};

}  // namespace quillmark
