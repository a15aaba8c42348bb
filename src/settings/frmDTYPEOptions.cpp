#include "settings/frmDTYPEOptions.h"

#include <string>

namespace quillmark {

frmDTYPEOptions::frmDTYPEOptions(Platform& machine, frmOrvalent& window, Conversation& talk)
    : OptionWindow("frmDTYPEOptions", machine, window, talk),
      InfoLabel(*this, this, "InfoLabel", "Select the diagnostic type"),
      RootButton(*this, this, "RootButton", "Root"),
      NodeButton(*this, this, "NodeButton", "Node"),
      CancelButton(*this, this, "CancelButton", "Cancel") {
  Caption = "Diagnostic Type Options";
  RootButton.OnClick = Handler([this] { Choose("root"); });
  NodeButton.OnClick = Handler([this] { Choose("node"); });
  CancelButton.OnClick = Handler([this] { Unload(); });
}

void frmDTYPEOptions::Choose(const char* type) {
  Send(std::string("dtype ") + type);
  Unload();
}

}  // namespace quillmark
