#pragma once

#include <array>
#include <filesystem>
#include <vector>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "session/chosen_files.h"

namespace quillmark {

// The menus, toolbar and status bar of the main window. Part of the main window, and as long-lived.
class MainMenus {
 public:
  explicit MainMenus(Form& form);

  Menu mnuFile, mnuPort, mnuSpecial, mnuRadioPassSub, mnuPreset, mnuRecent, mnuHelp;
  MenuItem mnuOpenLog, mnuCloseLog, mnuSendText, mnuHistory, mnuRestoreBefore, mnuFileExit;
  MenuItem mnuOpen, mnuProperties;
  MenuItem mnuPreferences, mnuSetPass, mnuAccessCode, mnuEncryptCode, mnuSetupMode,
      mnuConfigRestore;
  MenuItem mnuAbout;
  MenuItem mnuManual, mnuKeyboard, mnuVersions;
  std::array<MenuItem, MostRecentFiles> mnuRecentFile;
  MenuItem mnuPresetView, mnuPresetDelete, mnuPresetRename, mnuPresetEditDesc;

  Frame tbrToolBar;
  ToolButton tbr_OpenLogFile, tbr_CloseLogFile, tbr_Connect, tbr_Disconnect, tbr_Properties,
      tbr_TransmitTextFile, tbr_Login, tbr_Logout, tbr_Terminal;

  Frame sbrStatus;
  StatusPanel pnl_Status, pnl_Settings, pnl_ConnectTime;
  // How far a long run at the radio has come; visible while one is under way.
  ProgressBar barRun;

  // Lists these files in mnuRecent, which is off when there are none.
  void ShowRecent(const std::vector<std::filesystem::path>& files);
};

}  // namespace quillmark
