#pragma once

#include <QTimer>
#include <deque>

#include "qt/store/ini_preference_store.h"

namespace quillmark {

class Dialogs;
class EventLoop;
class QtWindows;

// Tells the user in a box of each trouble with the preferences file, as soon as the main window is
// up and no other window waits for an answer. The program makes one before the console starts.
class StoreTroubleBoxes {
 public:
  StoreTroubleBoxes(IniPreferenceStore& store, const QtWindows& windows, Dialogs& dialogs,
                    EventLoop& events);
  ~StoreTroubleBoxes();
  StoreTroubleBoxes(const StoreTroubleBoxes&) = delete;
  StoreTroubleBoxes& operator=(const StoreTroubleBoxes&) = delete;

 private:
  void ShowNext();

  IniPreferenceStore& store;
  const QtWindows& windows;
  Dialogs& dialogs;
  EventLoop& events;
  std::deque<IniPreferenceStore::Trouble> waiting;
  QTimer look;  // runs as long as one is waiting
};

}  // namespace quillmark
