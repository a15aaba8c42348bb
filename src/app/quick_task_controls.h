#pragma once

#include <array>

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

}  // namespace quillmark
