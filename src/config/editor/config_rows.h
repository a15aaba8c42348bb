#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include "config/editor/edited_config.h"
#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"

namespace quillmark {

// The settings that a file may hold of one tab, from the top down. Pages count from 0.
std::vector<const Setting*> SettingsOfPage(std::size_t page);

// What the hint of a setting is called beside its value: its name and this.
inline constexpr const char* HintEnding = "Hint";

// One setting of a file: what it is called, its value, and what radios take of it.
struct ConfigRow {
  ConfigRow(Form& form, Frame& frame, const Setting& setting);

  const Setting& What;
  Label Caption;
  TextBox Value;
  Label Hint;

  void Show(bool shown);
  // With what is wrong with the value, or without.
  void ShowVerdict(const Verdict& verdict, const Revision& revision);
};

// The settings of a configuration file by tab, to be edited in place. Part of its window, and as
// long-lived.
class ConfigRows {
 public:
  explicit ConfigRows(Form& form);

  quillmark::TabStrip TabStrip;
  std::deque<Frame> Page;  // one for each tab
  std::deque<ConfigRow> Rows;
  Label lblMarks;  // how many settings the file holds, and how many are marked

  // Shows the values of a file. A setting that its revision lacks is shown if the file holds it.
  void ShowValues(const EditedConfig& config);
  // Marks the values that radios don't take, and counts them.
  void Judge(const EditedConfig& config);

 private:
  void ShowCounts(const EditedConfig& config);
};

}  // namespace quillmark
