#pragma once

#include <vector>

#include "app/frmOrvalent.h"

namespace quillmark {

// While it lives, everything on the main window is off that would talk to the radio or keep the
// window waiting in a dialog: for long runs that have the line to themselves. Disconnecting and
// leaving the program stay.
class HeldControls {
 public:
  explicit HeldControls(frmOrvalent& main);
  ~HeldControls();
  HeldControls(const HeldControls&) = delete;
  HeldControls& operator=(const HeldControls&) = delete;

  // Holds one more until the end.
  void Hold(Control& control);
  // Switches off again what a connect or a read in between has switched on.
  void HoldAgain();

 private:
  // A control that is held off, and what it goes back to.
  struct Held {
    Control* What;
    bool WasEnabled;
    bool OfLink;  // goes on and off with the link
  };
  void Hold(Control& control, bool ofLink);

  std::vector<Held> held;
  frmOrvalent& main;
};

}  // namespace quillmark
