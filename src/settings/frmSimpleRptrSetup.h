#pragma once

#include "controls/form.h"

namespace quillmark {

// One large picture that explains a network with store-and-forward repeaters. From the quick tasks
// it stands beside the other windows and closes with the main window; from the extension map's
// window it is modal.
class frmSimpleRptrSetup : public Form {
 public:
  frmSimpleRptrSetup() : Form("frmSimpleRptrSetup") {
    Caption = "Store-and-Forward Repeater Setup";
  }
};

}  // namespace quillmark
