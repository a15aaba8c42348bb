#include "config/presets.h"

#include <string>

#include "prefs/utilities.h"

namespace quillmark {

std::filesystem::path PresetFile(const ProgramFiles& files, std::size_t slot) {
  return files.Data() / "Presets" / ("Preset" + std::to_string(slot + 1) + ".txt");
}

void UpdateSavePresetEnabled(frmOrvalent& main, const ProgramFiles& files) {
  bool slotFree = false;
  for (std::size_t slot = 0; slot < main.cmdPre.size() && !slotFree; ++slot) {
    slotFree = !FileExists(PresetFile(files, slot));
  }
  main.cmdSaveToPreset.Enabled = slotFree;
}

}  // namespace quillmark
