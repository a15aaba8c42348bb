#include "config/editor/config_file_menu.h"

#include <string>

#include "config/presets/preset_file.h"
#include "platform/utilities.h"
#include "session/chosen_files.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

constexpr const char* unsaved = "Unsaved";
constexpr const char* unsavedFile = "Configuration";

}  // namespace

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
  const auto shown = std::make_shared<frmConfigFile>(platform);
  window = shown;
  shown->PresetsChanged = PresetsChanged;
  if (shown->Open(file)) platform.Windows.ShowModal(shown, main);
}

void ConfigFileMenu::EndProgram() {
  const auto shown = window.lock();
  const std::filesystem::path kept =
      shown && shown->Loaded() ? shown->KeepUnsaved() : std::filesystem::path();
  if (!kept.empty()) platform.Preferences.WritePaths({{unsaved, unsavedFile, kept.string()}});
}

// Once: the file itself stays where it is.
void ConfigFileMenu::TellUnsaved() {
  const std::filesystem::path kept = platform.Preferences.ReadPath(unsaved, unsavedFile);
  if (kept.empty()) return;
  platform.Preferences.WritePaths({{unsaved, unsavedFile, ""}});
  if (!FileExists(kept)) return;
  main.FileDone.Tell(
      "The program ended before changes were saved. Click here to open them. " + PathText(kept),
      [this, kept] {
        main.FileDone.Drop();
        Show(kept);
      });
}

}  // namespace quillmark
