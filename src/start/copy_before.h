#pragma once

#include <filesystem>

#include "app/frmOrvalent.h"
#include "history/radio_history.h"
#include "platform/platform.h"
#include "restore/restore_menu.h"

namespace quillmark {

// Undoes the last run: a notice and a menu entry open the store and restore window with the copy of
// what the radio held before it, the rows that differ ticked.
class CopyBefore {
 public:
  CopyBefore(Platform& platform, frmOrvalent& main, RadioHistory& history, RestoreMenu& restore);

  void Wire();
  // A run begins, and a copy was kept or not.
  void NoteRun();
  // A read has ended: the run is over.
  void NoteRead();

 private:
  void Restore();
  // False when another radio is connected and the user does not want that.
  bool IsForThisRadio() const;

  Platform& platform;
  frmOrvalent& main;
  RadioHistory& history;
  RestoreMenu& restore;
  std::filesystem::path file;  // empty: nothing can be undone
  bool offered = false;
};

}  // namespace quillmark
