#pragma once

#include <cstddef>
#include <string>

#include "app/frmOrvalent.h"
#include "config/config_saver.h"
#include "config/config_sender.h"
#include "config/direct_run.h"
#include "config/presets/preset_file.h"
#include "platform/platform.h"

namespace quillmark {

// The six preset buttons: each holds a stored configuration, programs the radio from it at a click,
// and offers a menu to the other mouse button. The slots live in the files. Everything given to it
// outlives it.
class Presets {
 public:
  Presets(Platform& platform, const Session& session, frmOrvalent& main, DirectRun& run,
          ConfigSaver& saver, ConfigSender& sender);

  // Joins the buttons and the menu to their handlers.
  void Wire();
  // Fills the buttons from the files, at start, and removes half-made ones. A file whose number is
  // not that of its name is left out, so that no button programs another file than the one it
  // shows.
  void LoadPresetButtons();
  // The same again, while the program runs: a preset has been written by something else.
  void Reload();

 private:
  enum class MouseButton { Left = 1, Right = 2 };
  void cmdPre_MouseUp(std::size_t index, MouseButton button);
  void ProgramFrom(std::size_t slot);
  void cmdSaveToPreset_Click();
  void SaveInto(std::size_t slot, const PresetHeader& header);
  void mnuPresetView_Click();
  void mnuPresetDelete_Click();
  void mnuPresetRename_Click();
  void mnuPresetEditDesc_Click();

  std::filesystem::path File(std::size_t slot) const { return PresetFile(platform.Files, slot); }
  void ShowFilled(std::size_t slot, const PresetHeader& header);
  void ShowEmpty(std::size_t slot);
  // Nothing when the user gives up. `title` and `offered` are those of the input box.
  std::optional<std::string> AskCaption(const std::string& title, const std::string& offered);
  bool MakeFolder();
  void ShowFileTrouble(const char* text);

  Platform& platform;
  const Session& session;
  frmOrvalent& main;
  DirectRun& run;
  ConfigSaver& saver;
  ConfigSender& sender;
  std::size_t selectedSlot = 0;
};

}  // namespace quillmark
