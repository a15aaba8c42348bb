#pragma once

#include <array>
#include <deque>
#include <span>
#include <string>

#include "catalogue/settings.h"
#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"

namespace quillmark {

// One setting of the radio in the main window: its value, which a click programs, and its label,
// which a click explains.
class SettingRow : public ValueField {
 public:
  // A row with a tip can be clicked and starts with the arrow pointer.
  SettingRow(Form& form, Frame& frame, const Setting& setting);

  const Setting& What;
  Label Caption;
  bool CameLast = false;  // the last read has brought a value

  // Whether the radio has it, by its revision.
  void Show(bool shown);
  bool Shown() const { return shown; }
  // A filter leaves it out of the view, or no longer does.
  void LeaveOut(bool out);
  // The radio that is connected holds this.
  void ShowRead(const std::string& value);
  void MoveTo(double top);
  // Enabled with the arrow pointer, or disabled with the no-drop pointer.
  void AllowClick(bool allowed);

 private:
  void ShowOrHide();

  bool shown = true;
  bool leftOut = false;
};

// The rows of the main window by frame: the information frame and the six frames under the tabs.
// Part of the main window, and as long-lived; `settings` outlives it.
class SettingsRows {
 public:
  SettingsRows(Form& form, std::span<const Setting> settings);

  const std::span<const Setting> Settings;  // of all the windows of this main window

  Frame InfoFrame;
  TabStrip SettingsTab;
  std::array<Frame, 6> NetSet;

  std::deque<SettingRow> Rows;  // one for each of the settings, in their order
  SettingRow& At(SettingId id) { return Rows[PlaceOf(id)]; }
  const std::string& ModeText() { return At(SettingId::Mode).Text(); }
};

}  // namespace quillmark
