#pragma once

#include <array>
#include <optional>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"

namespace quillmark {

// The quick-task view of the main window: one button for each role of a new radio, the actions on
// configurations, the presets. Part of the main window, and as long-lived.
class QuickTaskControls {
 public:
  static constexpr std::size_t PresetCount = 6;
  static constexpr const char* EmptyTag = "EMPTY";  // of a preset's button that holds none

  explicit QuickTaskControls(Form& form);

  Frame frQuick;
  Frame frNewRadio;
  Button cmdMaster, cmdRemote, cmdRepeater, cmdSubRemote, cmdRptHelp1, cmdRptHelp2;
  Label Label1, Label2, Label3;
  ListBox cmbBaud;
  TextBox txtNewADDR;
  Slider sldPwr;

  Frame frAction;
  Button cmdReadRadio, cmdSaveToFile, cmdSaveToPreset, cmdProgramFromFile, cmdPrint;

  Frame frPreset;
  std::array<Button, PresetCount> cmdPre;
};

// The slot that the next save fills: the first whose button is empty. The files do not count here:
// a file that belongs to another slot leaves its button empty, and a save moves it aside.
std::optional<std::size_t> FirstEmptyPreset(const QuickTaskControls& tasks);
// Enables "SAVE TO PRESET" while there is such a slot, else disables it.
void UpdateSavePresetEnabled(QuickTaskControls& tasks);

}  // namespace quillmark
