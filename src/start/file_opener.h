#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "app/frmOrvalent.h"
#include "config/editor/config_file_menu.h"
#include "config/file_tasks.h"
#include "firmware/firmware_upgrade.h"
#include "platform/platform.h"
#include "restore/restore_menu.h"

namespace quillmark {

// A file that comes to the program without a dialog: it was dropped on the main window, or chosen
// among the recent ones. Asks what to do with it, and does what the buttons do, when they may be
// used. Everything given to it outlives it.
class FileOpener {
 public:
  FileOpener(Platform& platform, frmOrvalent& main, FileTasks& tasks, ConfigFileMenu& configFiles,
             RestoreMenu& restore, FirmwareUpgrade& upgrade);

  // Joins the main window's drops and its list of recent files to this.
  void Wire();
  void Open(const std::filesystem::path& file);

  // Whether a run has the radio, so that no box may come up: a notice tells it. Set by the
  // application.
  std::function<bool()> RunUnderWay;

 private:
  void OpenConfiguration(const std::filesystem::path& file);
  void OpenFirmware(const std::filesystem::path& file);
  void Tell(const std::string& text);

  Platform& platform;
  frmOrvalent& main;
  FileTasks& tasks;
  ConfigFileMenu& configFiles;
  RestoreMenu& restore;
  FirmwareUpgrade& upgrade;
};

}  // namespace quillmark
