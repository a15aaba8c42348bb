#pragma once

#include "controls/clickable.h"
#include "controls/form.h"

namespace quillmark {

// What the user should know besides the texts of the status bar: one short sentence a matter, in a
// strip above the status bar. A notice stands until the part of the program that tells it drops it.
// They stand here, and in the strip, in the order of their weight. Part of the main window, and as
// long-lived.
class Notices {
 public:
  explicit Notices(Form& form);

  Frame noticeStrip;
  Notice Transmitting;   // the radio's transmitter is keyed
  Notice NoAnswer;       // a read waits for a silent radio
  Notice ConnectFailed;  // why the last connect failed, and the cure
  Notice PortBack;       // the device of the chosen port can be opened again
  Notice NotLoggedIn;    // the radio refuses changes
  Notice Filtered;       // only some of the settings are shown
  Notice LastRun;        // what the radio took of the last settings sent
  Notice CopyBefore;     // what the radio held before the last run can be restored
  Notice FileDone;       // what the last file holds
  Notice LastRead;       // the rows are from then
};

}  // namespace quillmark
