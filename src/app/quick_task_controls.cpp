#include "app/quick_task_controls.h"

#include <initializer_list>

namespace quillmark {

QuickTaskControls::QuickTaskControls(Form& form)
    : frQuick(form, &form, "frQuick", "Quick Config"),
      frNewRadio(form, &frQuick, "frNewRadio", "NEW RADIO"),
      cmdMaster(form, &frNewRadio, "cmdMaster", "Master"),
      cmdRemote(form, &frNewRadio, "cmdRemote", "Remote"),
      cmdRepeater(form, &frNewRadio, "cmdRepeater", "Repeater"),
      cmdSubRemote(form, &frNewRadio, "cmdSubRemote", "Sub-Remote"),
      cmdRptHelp1(form, &frNewRadio, "cmdRptHelp1", "?"),
      cmdRptHelp2(form, &frNewRadio, "cmdRptHelp2", "?"),
      Label1(form, &frNewRadio, "Label1", "BAUD"),
      Label2(form, &frNewRadio, "Label2", "ADDR"),
      Label3(form, &frNewRadio, "Label3", "PWR"),
      cmbBaud(form, &frNewRadio, "cmbBaud",
              {"115200", "57600", "38400", "19200", "9600", "4800", "2400", "1200", "600", "300"}),
      txtNewADDR(form, &frNewRadio, "txtNewADDR", "1000"),
      sldPwr(form, &frNewRadio, "sldPwr", 20, 30, 30),
      frAction(form, &frQuick, "frAction", "ACTION"),
      cmdReadRadio(form, &frAction, "cmdReadRadio", "READ RADIO"),
      cmdSaveToFile(form, &frAction, "cmdSaveToFile", "SAVE TO FILE"),
      cmdSaveToPreset(form, &frAction, "cmdSaveToPreset", "SAVE TO PRESET"),
      cmdProgramFromFile(form, &frAction, "cmdProgramFromFile", "PROGRAM RADIO FROM FILE"),
      cmdPrint(form, &frAction, "cmdPrint", "PRINT"),
      frPreset(form, &frQuick, "frPreset", "PRESET"),
      cmdPre{{{form, &frPreset, "cmdPre_0", "(Empty)"},
              {form, &frPreset, "cmdPre_1", "(Empty)"},
              {form, &frPreset, "cmdPre_2", "(Empty)"},
              {form, &frPreset, "cmdPre_3", "(Empty)"},
              {form, &frPreset, "cmdPre_4", "(Empty)"},
              {form, &frPreset, "cmdPre_5", "(Empty)"}}} {
  cmbBaud.SetText("9600");
  for (Label* label : {&Label1, &Label2, &Label3}) label->ToolTip = "Click for more Information";
  cmdSubRemote.ToolTip = "A 'Sub-Remote' is a remote unit that talks through a repeater.";
  cmdPrint.ToolTip = "Prints radio configuration to default printer";
  for (Button& preset : cmdPre) {
    preset.Tag = EmptyTag;
    preset.FontSize = 8;
    preset.Enabled = false;
  }
  // Until a radio is connected.
  for (Control* control : std::initializer_list<Control*>{
           &cmdSaveToFile, &cmdSaveToPreset, &cmdProgramFromFile, &cmdPrint, &cmdMaster, &cmdRemote,
           &cmdRepeater, &cmdSubRemote, &cmbBaud, &txtNewADDR, &sldPwr}) {
    control->Enabled = false;
  }
  frQuick.BringToFront();
}

std::optional<std::size_t> FirstEmptyPreset(const QuickTaskControls& tasks) {
  for (std::size_t slot = 0; slot < tasks.cmdPre.size(); ++slot) {
    if (tasks.cmdPre[slot].Tag() == QuickTaskControls::EmptyTag) return slot;
  }
  return std::nullopt;
}

void UpdateSavePresetEnabled(QuickTaskControls& tasks) {
  tasks.cmdSaveToPreset.Enabled = FirstEmptyPreset(tasks).has_value();
}

}  // namespace quillmark
