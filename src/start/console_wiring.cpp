// Joins the controls of the main window to the classes that work for it.

#include <functional>
#include <string_view>

#include "link/new_address.h"
#include "link/settings_listener.h"
#include "start/console.h"
#include "text/text.h"

namespace quillmark {

void Console::WireLink() {
  platform.MSComm1.OnComm = [this] { receiver.MSComm1_OnComm(); };
  main->txtTerm.OnKeyPress = [this](char key) {
    main->FirstSteps.Visible = false;
    return typedKeys.txtTerm_KeyPress(key);
  };
  main->txtNewADDR.OnLostFocus = [this] {
    ValidateNewAddr(platform.Dialogs, main->txtNewADDR.Text());
  };
  main->imgConnected.OnClick = [this] { Disconnect(); };
  main->imgNotConnected.OnClick = [this] { Connect(); };
  main->mnuOpen.OnClick = [this] { connection.mnuOpen_Click(); };
  main->mnuProperties.OnClick = [this] { mnuProperties_Click(); };
  main->mnuOpenLog.OnClick = [this] { log.mnuOpenLog_Click(); };
  main->mnuCloseLog.OnClick = [this] { log.mnuCloseLog_Click(); };
  main->ButtonRefresh.OnClick = [this] { Refresh(); };
  main->cmdReadRadio.OnClick = [this] { connection.ButtonRefresh_Click(); };
  main->Timer1.OnTick = [this] { mainTimer.Timer1_Timer(); };
  main->Timer2.OnTick = [this] { connection.Timer2_Timer(); };
  main->tmrPortTO.OnTick = [this] { connection.tmrPortTO_Timer(); };
  ListenForSettings(radio, *main);
  connection.OnLinkEnded = [this] { lastRun.LinkEnded(lettingGo); };
  mainTimer.OnReadCycleDone = [this] {
    lastRun.ReadDone();
    history.NoteRead();
    undoRun.NoteRead();
    rowFilter.Apply();
    if (OnReadCycleDone) OnReadCycleDone();
  };
}

void Console::WireNotices() {
  readAge.Wire();
  mainTimer.OnRadioRead = [this] { readAge.ReadDone(); };
  connection.OnConnected = [this] { readAge.Connected(); };
  connection.OnDisconnected = [this] {
    readAge.Disconnected();
    portWatch.Start();
  };
  portWatch.Connect = [this] { Connect(); };
}

void Console::WireFiles() {
  fileOpener.RunUnderWay = [this] { return directRun.UnderWay() || upgrade.UnderWay(); };
  fileOpener.Wire();
  configFiles.Wire();
  configFiles.PresetsChanged = [this] { presets.Reload(); };
}

void Console::WireHistory() {
  const auto before = [this](const std::string& run) {
    history.BeforeRun(run);
    undoRun.NoteRun();
  };
  directRun.BeforeOverwrite = before;
  upgrade.BeforeOverwrite = before;
  restore.BeforeOverwrite = [this](const RadioTexts& shown) {
    history.BeforeRestore(shown);
    undoRun.NoteRun();
  };
  undoRun.Wire();
  historyMenu.Wire();
  history.Tell = [this](const std::string& sentence) { main->FileDone.Tell(sentence); };
}

void Console::WireShell() {
  rowFilter.Wire();
  finder.Wire();
  main->ButtonAdv.OnClick = [this] { main->ButtonAdv_Click(); };
  main->SettingsTab.OnClick = [this] { main->SettingsTab_Click(); };
  main->mnuAbout.OnClick = [this] { mnuAbout_Click(); };
  main->mnuManual.OnClick = [this] { OpenManual(); };
  main->mnuKeyboard.OnClick = [this] { OpenManual("keyboard"); };
  main->mnuVersions.OnClick = [this] { mnuVersions_Click(); };
  main->mnuPreferences.OnClick = [this] { mnuPreferences_Click(); };
  main->mnuFileExit.OnClick = [this] { Form_Unload(); };
  main->OnClose = [this] {
    quickConfig.Form_QueryUnload();
    Form_Unload();
  };
  for (ToolButton* button :
       {&main->tbr_OpenLogFile, &main->tbr_CloseLogFile, &main->tbr_Connect, &main->tbr_Disconnect,
        &main->tbr_Properties, &main->tbr_Logout, &main->tbr_Terminal}) {
    button->OnClick = [this, button] {
      tbrToolBar_ButtonClick(std::string_view(button->Name()).substr(4));
    };
  }
}

void Console::tbrToolBar_ButtonClick(std::string_view key) {
  // A button of the toolbar and what it does.
  struct Row {
    const char* Key;
    std::function<void()> Run;
  };
  const Row rows[] = {
      {"OpenLogFile", [this] { log.mnuOpenLog_Click(); }},
      {"CloseLogFile", [this] { log.mnuCloseLog_Click(); }},
      {"Connect", [this] { Connect(); }},
      {"Disconnect", [this] { Disconnect(); }},
      {"Properties", [this] { mnuProperties_Click(); }},
      {"Logout", [this] { Logout(); }},
      {"Terminal", [this] { main->ToggleTerminal(); }},
  };
  for (const Row& row : rows) {
    if (EqualAnyCase(row.Key, key)) row.Run();
  }
}

}  // namespace quillmark
