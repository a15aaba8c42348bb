#pragma once

#include "platform/platform.h"
#include "restore/restore_controls.h"
#include "restore/restore_link.h"

namespace quillmark {

// Brings the radio to its prompt and reads it into the window's current column. Everything given to
// it outlives it.
class RestoreReader {
 public:
  RestoreReader(Platform& platform, RestoreControls& controls, RestoreLink& link, Session& session);

  // Sends bursts until the radio shows a prompt, 45 s at most. Ends early on a closed port, and
  // when the window is to close. Throws SerialError and RestoreLinkLost.
  void WakeRadio();
  // One whole read: some six seconds. A row whose reply does not come keeps its text. Throws
  // SerialError and RestoreLinkLost.
  void Run();

 private:
  void ShowStart();
  void ReadRow(RestoreRowControls& row);
  void AfterRow(RestoreSetting id, bool wasRead);
  void Step(int percent);
  void ShowEnd();

  Platform& platform;
  RestoreControls& controls;
  RestoreLink& link;
  Session& session;
};

}  // namespace quillmark
