#pragma once

#include "restore/restore_controls.h"
#include "restore/restore_link.h"

namespace quillmark {

// Reads the radio into the window's current column. Everything given to it outlives it.
class RestoreReader {
 public:
  RestoreReader(RestoreControls& controls, RestoreLink& link, Session& session);

  // One whole read: some six seconds. A row whose reply does not come, or not as it should, keeps
  // its text. Throws SerialError and RestoreLinkLost.
  void Run();

 private:
  void ShowStart();
  // Whether the radio has told the setting.
  bool ReadRow(RestoreRowControls& row);
  void AfterRow(SettingId id, bool wasRead);
  void Step(int percent);
  void ShowEnd(bool anyCame);

  RestoreControls& controls;
  RestoreLink& link;
  Session& session;
};

}  // namespace quillmark
