#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "session/chosen_files.h"

namespace quillmark {

// The menus, toolbar and status bar of the main window. Part of the main window, and as long-lived.
class MainMenus {
 public:
  static constexpr std::size_t MostPresets = 6;

  explicit MainMenus(Form& form);

  Menu mnuFile, mnuPort, mnuSpecial, mnuRadioPassSub, mnuPreset, mnuRecent, mnuOpenPreset, mnuHelp;
  MenuItem mnuOpenConfig, mnuOpenLog, mnuCloseLog, mnuSendText, mnuHistory, mnuRestoreBefore,
      mnuFileExit;
  MenuItem mnuOpen, mnuProperties;
  MenuItem mnuPreferences, mnuSetPass, mnuAccessCode, mnuEncryptCode, mnuSetupMode,
      mnuConfigRestore;
  MenuItem mnuFind, mnuFilterFactory, mnuFilterCopy;
  MenuItem mnuAbout;
  MenuItem mnuManual, mnuKeyboard, mnuVersions;
  std::array<MenuItem, MostRecentFiles> mnuRecentFile;
  std::array<MenuItem, MostPresets> mnuPresetFile;
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
  // Lists a preset in mnuOpenPreset, or no longer does when its caption is empty. Slots count from
  // 0. The menu is off when it lists none.
  void ShowPreset(std::size_t slot, const std::string& caption);
};

}  // namespace quillmark
