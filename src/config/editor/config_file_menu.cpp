#include "config/editor/config_file_menu.h"

#include <memory>

#include "config/editor/frmConfigFile.h"
#include "config/presets/preset_file.h"
#include "session/chosen_files.h"

namespace quillmark {

ConfigFileMenu::ConfigFileMenu(Platform& machine, frmOrvalent& window)
    : platform(machine), main(window) {}

void ConfigFileMenu::Wire() {
  static_assert(MainMenus::MostPresets == PresetSlots);
  main.mnuOpenConfig.OnClick = [this] { mnuOpenConfig_Click(); };
  for (std::size_t slot = 0; slot < main.mnuPresetFile.size(); ++slot) {
    main.mnuPresetFile[slot].OnClick = [this, slot] { Show(PresetFile(platform.Files, slot)); };
  }
}

void ConfigFileMenu::mnuOpenConfig_Click() {
  const auto file = ChooseToOpen(
      platform, FileKind::Configuration,
      {.Title = "Open Configuration", .Filter = "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*"});
  if (file) Open(*file);
}

void ConfigFileMenu::Open(const std::filesystem::path& file) {
  Show(file);
  main.ShowRecent(RecentConfigurations(platform.Preferences));
}

void ConfigFileMenu::Show(const std::filesystem::path& file) {
  const auto window = std::make_shared<frmConfigFile>(platform);
  window->PresetsChanged = PresetsChanged;
  if (window->Open(file)) platform.Windows.ShowModal(window, main);
}

}  // namespace quillmark
