#pragma once

#include "controls/clickable.h"
#include "settings/option_window.h"

namespace quillmark {

// Makes the radio the root or a node of network-wide diagnostics. Modal, opened at a click on the
// DTYPE row.
class frmDTYPEOptions : public OptionWindow {
 public:
  frmDTYPEOptions(Platform& platform, frmOrvalent& main, Conversation& radio);

  Label InfoLabel;
  Button RootButton, NodeButton, CancelButton;

 private:
  void Choose(const char* type);
};

}  // namespace quillmark
