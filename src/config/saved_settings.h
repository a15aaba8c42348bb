#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/settings.h"

namespace quillmark {

// How the main window saves a setting, as its row of the catalogue has it.

// All settings that a file may hold, in the order in which they are saved. Those that only the
// store and restore window saves stand where it has them.
std::vector<const Setting*> FileOrder(std::span<const Setting> settings);

// What is asked of the radio.
std::string SavedCommand(const Setting& setting);
// What is looked for in the reply; empty: any text is taken.
std::string SavedWord(const Setting& setting);

// As the radio gave it, its line ends and prompt around it: the cuts count on them.
std::string AsReply(const std::string& text);
bool IsOneLine(const std::string& text);

// The firmware's part number, revision and date in one line, out of the value of "srev".
std::string SavedFirmware(std::string value);

// Whether a radio of that revision and mode ("MODE M") has a value of it for the file, as far as
// the catalogue tells. An unknown revision has all.
bool GivesLine(const Setting& setting, const Revision& revision, std::string_view modeText);

// What the reply gives for the file: nothing when it lacks the word; else one line, or two joined
// by CR LF. Throws RunFailed when the cut can't be made.
std::optional<std::string> CutSetting(const Setting& setting, const std::string& reply);

}  // namespace quillmark
