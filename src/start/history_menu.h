#pragma once

#include <memory>

#include "app/frmOrvalent.h"
#include "config/editor/config_file_menu.h"
#include "history/frmHistory.h"
#include "history/radio_history.h"
#include "platform/platform.h"
#include "session/session.h"
#include "start/undo_run.h"

namespace quillmark {

// The menu entry that opens the window of the radio history, one at a time, and what the window
// needs of the others: a copy that is kept while it is open shows up, and the store and restore
// window or that of configuration files opens one. Everything given to it outlives it.
class HistoryMenu {
 public:
  HistoryMenu(Platform& platform, const Session& session, frmOrvalent& main, RadioHistory& history,
              UndoRun& undoRun, ConfigFileMenu& configFiles);
  ~HistoryMenu();
  HistoryMenu(const HistoryMenu&) = delete;
  HistoryMenu& operator=(const HistoryMenu&) = delete;

  void Wire();

 private:
  void mnuHistory_Click();

  Platform& platform;
  const Session& session;
  frmOrvalent& main;
  RadioHistory& history;
  UndoRun& undoRun;
  ConfigFileMenu& configFiles;
  std::weak_ptr<frmHistory> window;
};

}  // namespace quillmark
