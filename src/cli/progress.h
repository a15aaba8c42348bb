#pragma once

#include <string>

#include "app/frmOrvalent.h"
#include "controls/control.h"

namespace quillmark {

// Tells on stderr how far a run at the radio has come, if that is a terminal: one line, which goes
// when the run is over.
class Progress : private ControlView {
 public:
  // `main` outlives it.
  Progress(frmOrvalent& main, bool quiet);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Takes the line off, so that another one can be written.
  void Clear();

 private:
  void Changed(Control& control) override;

  frmOrvalent& main;
  const bool shown;
  std::string line;
};

}  // namespace quillmark
