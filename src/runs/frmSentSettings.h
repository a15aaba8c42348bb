#pragma once

#include <string>

#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"

namespace quillmark {

// The settings that were sent last, and what the radio has made of each. Stands beside the main
// window.
class frmSentSettings : public Form {
 public:
  // `sentence` tells it in short, `table` setting by setting.
  frmSentSettings(const std::string& sentence, const std::string& table);

  Label lblSentence;
  TextBox txtTable;  // read-only
  Button cmdClose;
};

}  // namespace quillmark
