#pragma once

#include <string_view>

namespace quillmark {

// The word (small letters, as the radio is asked with it) of the setting that a line of a
// configuration file is of; empty for any other line. A line is known by the key that stands
// anywhere in it, capitals exact; the first key in the order of the file format wins, so that
// "OWN UNIT 5" counts as the unit address. The line of the options ("Diagnostics ON, LPM OFF") is
// of no setting.
std::string_view SettingOfLine(std::string_view line);

}  // namespace quillmark
