#pragma once

#include "controls/form.h"

namespace quillmark {

// One large picture that explains a network with store-and-forward repeaters. Stands beside the
// other windows and closes with the main window.
class frmSimpleRptrSetup : public Form {
 public:
  frmSimpleRptrSetup() : Form("frmSimpleRptrSetup") {
    Caption = "Store-and-Forward Repeater Setup";
  }
};

}  // namespace quillmark
