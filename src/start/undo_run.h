#pragma once

#include <filesystem>
#include <string>

#include "app/frmOrvalent.h"
#include "history/radio_history.h"
#include "platform/platform.h"
#include "restore/restore_menu.h"

namespace quillmark {

// Undoes the last run: a notice and a menu entry open the store and restore window with the copy of
// what the radio held before it, the rows that differ ticked.
class UndoRun {
 public:
  UndoRun(Platform& platform, frmOrvalent& main, RadioHistory& history, RestoreMenu& restore);

  void Wire();
  // A run begins, and a copy was kept or not.
  void NoteRun();
  // A read has ended: the run is over.
  void NoteRead();
  // Opens the store and restore window with another copy, nothing ticked. Tells when that can't be
  // done now, and asks when another radio is connected.
  void Open(const std::filesystem::path& copy);

 private:
  void Restore();
  // False, with a box, without a radio or while a run is under way.
  bool CanRestore(const std::string& title) const;
  // False when another radio is connected and the user does not want that. `copyIs` begins the
  // sentence that tells the copy's radio.
  bool IsForThisRadio(const std::filesystem::path& copy, const std::string& copyIs,
                      const std::string& title) const;

  Platform& platform;
  frmOrvalent& main;
  RadioHistory& history;
  RestoreMenu& restore;
  std::filesystem::path file;  // empty: nothing can be undone
  bool offered = false;
};

}  // namespace quillmark
