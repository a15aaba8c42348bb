#include "start/console.h"

#include <cstdint>

#include "app/version.h"
#include "config/temp_folder.h"
#include "link/frmProperties.h"
#include "link/serial_failure.h"
#include "prefs/frmPreferences.h"
#include "prefs/stored_preferences.h"
#include "session/chosen_files.h"
#include "settings/explanations.h"
#include "start/frmSplash.h"
#include "text/at_end.h"

namespace quillmark {

Console::Console(Platform& machine, std::span<const Setting> settings)
    : platform(machine),
      main(std::make_shared<frmOrvalent>(machine.Events, settings)),
      log(machine, *main),
      radio(machine.MSComm1, machine.Events, session, *main, Conversation::Hears::ByEvents),
      connection(machine, session, *main, radio),
      portWatch(machine, *main),
      receiver(machine, session, *main, connection, radio, log),
      typedKeys(machine, session, main->txtTerm, radio),
      readCycle(machine, session, *main, connection, radio),
      mainTimer(machine, session, *main, connection, readCycle, radio),
      readAge(machine.Events, machine.MSComm1, *main),
      programmer(machine, session, *main, radio),
      optionRows(machine, session, *main, radio),
      access(machine, session, *main, radio),
      directRun(machine, *main, connection, radio),
      saver(machine, *main, connection, radio, directRun),
      sender(machine, session, *main, connection, radio, directRun),
      fileTasks(machine, *main, directRun, saver, sender),
      presets(machine, session, *main, directRun, saver, sender),
      configFiles(machine, *main),
      quickConfig(machine, *main, radio, directRun, sender),
      upgrade(machine, session, *main, connection, radio),
      restore(machine, session, *main, connection, mainTimer, radio),
      history(machine, session, *main, readCycle, radio),
      undoRun(machine, *main, history, restore),
      historyMenu(machine, session, *main, history, undoRun, configFiles),
      rowFilter(*main, history.Store, machine.Desktop),
      finder(*main),
      diagnostics(machine, *main, radio),
      fileOpener(machine, *main, fileTasks, configFiles, restore, upgrade),
      lastRun(machine, *main) {
  WireLink();
  WireShell();
  programmer.Wire();
  optionRows.Wire();
  WireNotices();
  access.Wire();
  directRun.Obstacle = [this] { return access.OpenWindow(); };
  fileTasks.Wire();
  presets.Wire();
  quickConfig.Wire();
  upgrade.MayStart = [this] { return directRun.MayStart(); };
  upgrade.Wire();
  // It may run together with the bench test mode.
  restore.MayStart = [this] { return !access.PasswordWindowOpen() || directRun.MayStart(); };
  restore.Wire();
  diagnostics.Wire();
  WireFiles();
  WireHistory();
  WireExplanations(*main, platform.Dialogs, session);
}

Console::~Console() {
  platform.MSComm1.OnComm = nullptr;
  if (const auto window = splash.lock()) window->Dismiss();
  if (const auto window = manual.lock()) window->Unload();
  main->Unload();
}

void Console::Disconnect() {
  // Only a run that is under way asks for it.
  main->LinkLetGo = directRun.UnderWay();
  const auto byUser = Raised(lettingGo);
  connection.DisconnectRadio();
}

void Console::Logout() {
  radio.Turns.WhenFree(main->tbr_Logout, [this] { connection.LogoutRadio(); });
}

// Not during a long run: it connects by itself when it needs to.
void Console::Connect() {
  if (!directRun.UnderWay() && !upgrade.UnderWay()) connection.ConnectRadio();
}

void Console::Refresh() {
  if (platform.MSComm1.PortOpen()) {
    connection.ButtonRefresh_Click();
  } else {
    Connect();
  }
}

void Console::Start() {
  platform.Desktop.UseTheme(StoredTheme(platform.Preferences));
  ShowSplash();
}

void Console::ShowSplash() {
  const auto window = std::make_shared<frmSplash>(platform.Events, platform.Desktop, session,
                                                  [this] { ShowMain(); });
  splash = window;
  platform.Windows.Show(window);
}

void Console::mnuAbout_Click() {
  session.SplashAboutMode = true;
  ShowSplash();
  main->Enabled = false;
}

void Console::OpenManual(const std::string& page) {
  auto window = manual.lock();
  if (!window || !window->Loaded()) window = std::make_shared<frmHelp>();
  manual = window;
  if (!page.empty()) window->Page.Text = page;
  platform.Windows.Show(window);
}

void Console::mnuVersions_Click() {
  const std::string versions =
      std::string("Quillmark Console ") + VersionText + "\r\n" + platform.Desktop.Surroundings();
  const Answer answer =
      platform.Dialogs.Message({.Text = versions,
                                .Title = "Versions",
                                .Symbol = Icon::Information,
                                .Choice = Buttons::OkCancel,
                                .Captions = {{Answer::Ok, "Copy"}, {Answer::Cancel, "Close"}}});
  if (answer == Answer::Ok) platform.Desktop.Copy(versions);
}

void Console::ShowMain() {
  if (!mainLoaded) {
    mainLoaded = true;
    Form_Load();
    platform.Windows.Show(main);
  }
  main->Enabled = true;
  session.SplashAboutMode = false;
}

void Console::Form_Load() {
  ClearTempDirectory(platform.Files);
  platform.Random.Seed(static_cast<std::uint32_t>(platform.Events.LocalSeconds()));
  main->Timer1.Enabled = true;
  main->Caption = ProgramTitle;
  platform.MSComm1.SetSettings("19200,N,8,1");
  platform.MSComm1.SetHandshaking(0);
  main->txtTerm.Text = "";
  const int port = LoadStoredPreferences(platform.Preferences, session, main->txtTerm);
  platform.MSComm1.SetCommPort(port);
  main->LayOut(platform.Desktop.ScreenWidth(), platform.Desktop.ScreenHeight());
  main->ConnectOnLaunchPending = session.ConnectOnLaunch;
  for (Frame& frame : main->NetSet) frame.Enabled = false;
  presets.LoadPresetButtons();
  main->ShowRecent(RecentConfigurations(platform.Preferences));
  configFiles.TellUnsaved();
}

void Console::mnuProperties_Click() {
  const int before = platform.MSComm1.CommPort();
  platform.Windows.ShowModal(
      std::make_shared<frmProperties>(platform, session, *main,
                                      [this] { connection.DisconnectRadio(); }),
      *main);
  if (!session.PortChanged) return;
  // Another radio is behind another port, and what is shown is not its values.
  if (platform.MSComm1.CommPort() != before) readAge.Disconnected();
  connection.ButtonRefresh_Click();
  session.PortChanged = false;
}

void Console::mnuPreferences_Click() {
  platform.Windows.ShowModal(std::make_shared<frmPreferences>(platform.Preferences, session,
                                                              main->txtTerm, platform.Desktop),
                             *main);
}

void Console::Form_Unload() {
  if (ending) return;
  if (!mainLoaded) {
    platform.Events.Quit();
    return;
  }
  ending = true;
  restore.EndProgram();
  configFiles.EndProgram();
  diagnostics.CloseWindow();
  const bool wasOpen = platform.MSComm1.PortOpen();
  if (!LogOutAndDrain()) {
    ending = false;
    // Opened for the logout alone; the window shows it closed.
    if (!wasOpen) platform.MSComm1.SetPortOpen(false);
    return;
  }
  platform.MSComm1.SetPortOpen(false);
  if (log.Open()) log.mnuCloseLog_Click();
  main->Unload();
  platform.Events.Quit();
}

bool Console::LogOutAndDrain() {
  const LineTurns::Turn turn(radio.Turns);
  SendLogout();
  return DrainOutput();
}

void Console::SendLogout() {
  try {
    radio.LeaveEchoOn();
    // A loader would take it for a part of the firmware.
    if (!session.LogoutOnQuit || upgrade.Loading()) return;
    if (!platform.MSComm1.PortOpen()) platform.MSComm1.SetPortOpen(true);
    radio.Say("PASS NONE");
  } catch (const SerialError&) {
    return;  // there is no radio to log out
  }
}

bool Console::DrainOutput() {
  const auto sent = [this] {
    return !platform.MSComm1.PortOpen() || platform.MSComm1.OutBufferCount() == 0;
  };
  while (!WaitUntil(platform.Events, Seconds(10), sent)) {
    const Answer answer = platform.Dialogs.Message(
        {"Data cannot be sent", ProgramTitle, Icon::Question, Buttons::AbortRetryIgnore});
    if (answer == Answer::Abort) return false;
    if (answer == Answer::Ignore) return true;
  }
  return true;
}

}  // namespace quillmark
