#include "config/presets/frmViewer.h"

namespace quillmark {

frmViewer::frmViewer()
    : Form("frmViewer"),
      txtViewer(*this, this, "txtViewer"),
      cmdClose(*this, this, "cmdClose", "Close") {
  cmdClose.OnClick = [this] { Unload(); };
}

}  // namespace quillmark
