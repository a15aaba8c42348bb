#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/settings.h"

namespace quillmark {

// The setting that a line of a configuration file is of; nothing for any other line. A line is
// known by the key that stands anywhere in it, capitals exact; the first key in the order of the
// catalogue wins, so that "OWN UNIT 5" counts as the unit address. A line with "CTSHOLD" is not of
// the setting with the shorter key "CTS". The line of the options ("Diagnostics ON, LPM OFF") is of
// no setting.
std::optional<SettingId> SettingOfLine(std::string_view line,
                                       std::span<const Setting> settings = AllSettings());

// Whether lines are a configuration. A line of a setting is enough: a file may have been written by
// hand.
bool IsConfiguration(const std::vector<std::string>& lines);

}  // namespace quillmark
