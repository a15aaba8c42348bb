#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "access/access_menus.h"
#include "app/frmOrvalent.h"
#include "app/setting_finder.h"
#include "config/config_saver.h"
#include "config/config_sender.h"
#include "config/direct_run.h"
#include "config/editor/config_file_menu.h"
#include "config/file_tasks.h"
#include "config/new_radio/quick_config.h"
#include "config/presets/presets.h"
#include "conversation/conversation.h"
#include "diagnostics/diagnostic_buttons.h"
#include "firmware/firmware_upgrade.h"
#include "history/radio_history.h"
#include "history/row_filter.h"
#include "link/connection.h"
#include "link/port_watch.h"
#include "link/receiver.h"
#include "link/terminal_log.h"
#include "link/typed_keys.h"
#include "platform/platform.h"
#include "radio/main_timer.h"
#include "radio/read_age.h"
#include "radio/read_cycle.h"
#include "restore/restore_menu.h"
#include "session/session.h"
#include "settings/option_rows.h"
#include "settings/programming.h"
#include "start/file_opener.h"
#include "start/frmHelp.h"
#include "start/frmSplash.h"
#include "start/history_menu.h"
#include "start/last_run.h"
#include "start/undo_run.h"

namespace quillmark {

// The whole application: makes the main window and the classes that work for it, joins its controls
// to them, starts and ends. The serial ports' OnComm must not be called after its end.
class Console {
 public:
  // `settings` are those that the windows show, and outlive it too.
  explicit Console(Platform& platform, std::span<const Setting> settings = AllSettings());
  ~Console();

  // Shows the splash window; the main window follows when that closes.
  void Start();
  // What the main window's close box, the menu's Exit and a signal to end do: logs out if that is
  // wanted, drains the port, closes it and the log, ends the program. The user may still abort it.
  void Form_Unload();

  // Shows the manual, at the page of that name. Without one it opens at its first page, or stays
  // where it is.
  void OpenManual(const std::string& page = {});

  frmOrvalent& Main() { return *main; }
  Session& Shared() { return session; }
  Conversation& Talk() { return radio; }
  SettingProgrammer& Programmer() { return programmer; }
  const ConfigSaver& Saver() const { return saver; }
  RadioHistory& History() { return history; }
  // What the last read has brought.
  const ReadCycle::Brought& LastRead() const { return readCycle.Last(); }

  // Told after each read cycle that ran to its end.
  std::function<void()> OnReadCycleDone;

 private:
  void ShowSplash();
  void Form_Load();
  void ShowMain();
  void WireLink();
  void WireNotices();
  void WireFiles();
  void WireShell();
  void WireHistory();
  void tbrToolBar_ButtonClick(std::string_view key);
  void Disconnect();
  void Logout();
  void Connect();
  void Refresh();
  void mnuAbout_Click();
  void mnuVersions_Click();
  void mnuProperties_Click();
  void mnuPreferences_Click();
  // False when the user aborts.
  bool LogOutAndDrain();
  void SendLogout();
  // False when the user aborts.
  bool DrainOutput();

  Platform& platform;
  Session session;
  std::shared_ptr<frmOrvalent> main;
  TerminalLog log;
  Conversation radio;
  Connection connection;
  PortWatch portWatch;
  Receiver receiver;
  TypedKeys typedKeys;
  ReadCycle readCycle;
  MainTimer mainTimer;
  ReadAge readAge;
  SettingProgrammer programmer;
  OptionRows optionRows;
  AccessMenus access;
  DirectRun directRun;
  ConfigSaver saver;
  ConfigSender sender;
  FileTasks fileTasks;
  Presets presets;
  ConfigFileMenu configFiles;
  QuickConfig quickConfig;
  FirmwareUpgrade upgrade;
  RestoreMenu restore;
  RadioHistory history;
  UndoRun undoRun;
  HistoryMenu historyMenu;
  RowFilter rowFilter;
  SettingFinder finder;
  DiagnosticButtons diagnostics;
  FileOpener fileOpener;
  LastRun lastRun;
  std::weak_ptr<frmSplash> splash;
  std::weak_ptr<frmHelp> manual;
  bool mainLoaded = false;
  bool ending = false;
  bool lettingGo = false;  // the user ends the link
};

}  // namespace quillmark
