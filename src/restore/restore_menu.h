#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "app/frmOrvalent.h"
#include "catalogue/radio_texts.h"
#include "link/connection.h"
#include "platform/platform.h"
#include "radio/main_timer.h"
#include "restore/frmRestore.h"
#include "session/session.h"

namespace quillmark {

// The menu entry that opens the store and restore window: warns a user who is not logged in, gives
// the port over, shows the window. Everything given to it outlives it.
class RestoreMenu {
 public:
  RestoreMenu(Platform& platform, Session& session, frmOrvalent& main, Connection& connection,
              MainTimer& mainTimer, Conversation& radio);
  ~RestoreMenu();
  RestoreMenu(const RestoreMenu&) = delete;
  RestoreMenu& operator=(const RestoreMenu&) = delete;

  void Wire();
  void mnuConfigRestore_Click() { Open({}); }
  // The same as the entry does, and loads the file as soon as the radio has been read: when the
  // line is free, and not while something else has the radio. With `tickDiffering` the rows that
  // differ are ticked then.
  void Compare(const std::filesystem::path& file, bool tickDiffering = false);
  // Closes the window, whatever it is doing; the main window has its port back then.
  void CloseWindow();
  // The same at the end of the program: a port that can't be given back is nobody's trouble then.
  void EndProgram();
  // Asked before the window opens: false, with a box, when something else has the radio. Set by the
  // application.
  std::function<bool()> MayStart;
  // Told before rows are programmed, with what the window has read of the radio. Set by the
  // application; may be empty.
  std::function<void(const RadioTexts&)> BeforeOverwrite;

 private:
  // Finds out whether the user is logged in. False when they do not go on.
  bool MayBeOpened();
  Answer AskWhetherToOpen();
  void OpenWhenFree(const std::filesystem::path& file, bool tickDiffering = false);
  // Without a file when the path is empty.
  void Open(const std::filesystem::path& file, bool tickDiffering = false);
  void ShowWindow(const std::filesystem::path& file, bool tickDiffering);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  MainTimer& mainTimer;
  Conversation& radio;
  std::weak_ptr<frmRestore> window;
  bool probing = false;
};

}  // namespace quillmark
