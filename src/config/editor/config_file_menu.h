#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "app/frmOrvalent.h"
#include "config/editor/frmConfigFile.h"
#include "platform/platform.h"

namespace quillmark {

// The menu entries that open configuration files and presets without a radio. Everything given to
// it outlives it.
class ConfigFileMenu {
 public:
  ConfigFileMenu(Platform& platform, frmOrvalent& main);

  // Joins the entries to this.
  void Wire();
  // Shows the file's window until the user closes it. A configuration becomes one of the recent
  // ones.
  void Open(const std::filesystem::path& file);

  // The program ends with a window open: what was not saved in it is kept, and told by a notice at
  // the next start.
  void EndProgram();
  void TellUnsaved();

  // Told when a preset has been written. May be empty.
  std::function<void()> PresetsChanged;

 private:
  void mnuOpenConfig_Click();
  void Show(const std::filesystem::path& file);

  Platform& platform;
  frmOrvalent& main;
  std::weak_ptr<frmConfigFile> window;
};

}  // namespace quillmark
