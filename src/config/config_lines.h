#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"

namespace quillmark {

// The configuration file as its readers see it: one place for what a line is, how much is taken and
// what makes a file valid. Which setting a line is of stands in config_keys.h.

// A line has at most this many characters.
inline constexpr std::size_t LongestConfigLine = 1024;
// A file that is sent to a radio has at most this many lines.
inline constexpr std::size_t MostConfigLines = 101;

// Every line end there is (CR LF, LF, CR) ends a line; a byte-order mark at the head and the other
// control characters are dropped.
struct ConfigText {
  std::vector<std::string> Lines;
  std::string Refusal;  // a sentence for the user: why no more than these lines were taken
};

// Reads at most `mostLines` lines. Only a plain file is read; whatever is wrong with it, nothing is
// thrown and nothing blocks.
ConfigText ReadConfigText(const std::filesystem::path& path, std::size_t mostLines);

// Tells the user that a file is refused, and why.
void ShowRefusal(Dialogs& dialogs, const std::string& refusal);

// A comment, which is not sent.
bool IsComment(std::string_view line);
// Whether one of the lines is the header's line on the firmware, as every saved file has it.
bool IsSavedConfig(const std::vector<std::string>& lines);

// The value behind the word of an alarm sense line, which the radio prints under another word than
// it programs ("ALARM ACTIVE HI", also with a colon, is set by "asense HI"). Nothing for any other
// line.
std::optional<std::string> AlarmSenseValue(std::string_view line);

}  // namespace quillmark
