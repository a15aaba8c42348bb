#pragma once

#include <map>
#include <string>
#include <vector>

#include "catalogue/setting.h"
#include "config/judged_lines.h"

namespace quillmark {

// What the lines of a configuration leave a radio with: each setting's value whole. A line may set
// one part of a value of two ("DLINK ON"); the other part stays as an earlier line has it. Each
// value stands as the line that sets all of it: "PWR 30", "DLINK 19200 ON", "OWN my name".
using ConfigValues = std::map<SettingId, std::string>;

// The last line of a setting counts, whatever the verdict on it.
ConfigValues ValuesOf(const std::vector<SentLine>& sent);
// The same for all lines of a file.
ConfigValues ValuesOf(const std::vector<std::string>& lines);

// The value that a line sets, as the radio shows it: with the word, but for a free text.
std::string ShownValue(const Setting& setting, const std::string& line);
// What a setting is called where it can be restored: "Power Level".
std::string Subject(const Setting& setting);

// One setting in two configurations.
struct ComparedValue {
  const Setting* What;  // lives for the whole run
  std::string First;    // its line; empty when that configuration leaves it out
  std::string Second;
  bool Same;  // both have it, and mean the same
};
// All that one of them has, in the order of the catalogue.
std::vector<ComparedValue> CompareValues(const ConfigValues& first, const ConfigValues& second);

}  // namespace quillmark
