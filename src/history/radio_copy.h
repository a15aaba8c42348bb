#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/radio_texts.h"
#include "catalogue/settings.h"
#include "history/copy_names.h"

namespace quillmark {

// A copy of what a radio holds, and its text: a configuration file, whose comments also tell why it
// was taken, and end in a line by which a copy that was cut short or changed is known.
struct RadioCopy {
  std::string Serial;    // as the radio says it, "SN 00123456"
  std::string Firmware;  // part number, revision and date in one line
  std::string Reason;    // "read", "before a preset", ...
  std::string Name;      // the user's; mostly empty
  bool Pinned = false;   // it is not removed to make room
  bool Complete = true;  // no setting of a file is missing that the radio has
  std::vector<std::string> Lines;
};

// The copy that these texts make, without a reason: lines in the order and by the cuts of a save.
// What can't be a line is left out; then it is not complete.
RadioCopy CopyOf(std::span<const Setting> settings, const RadioTexts& texts);

// Whether both tell the same of the radio. A copy without its extension map, which a read of the
// main window does not ask for, is no different for that.
bool SameSettings(const RadioCopy& a, const RadioCopy& b);

// The text of its file. `date` is the short date of today, `utcSeconds` the time.
std::string CopyText(const RadioCopy& copy, const std::string& date, std::int64_t utcSeconds);

// What the user notes on a copy that is kept: lines of its head. The settings, and so the end line,
// stay as they are, byte for byte. `name` is on one line; empty takes the name away.
std::string WithNotes(const std::string& text, const std::string& name, bool pinned);
// The longest name that is kept, in characters; and a name as it can be kept: without what comments
// can't hold.
inline constexpr std::size_t LongestCopyName = 60;
std::string CopyName(std::string_view name);

// What a file is that stands among the copies.
enum class CopyState {
  Sound,
  CutShort,   // its last lines are missing
  Changed,    // the settings are not those that were kept
  Unreadable  // no plain file, no right to read it, no text
};
struct KeptCopy {
  CopyState State = CopyState::Unreadable;
  RadioCopy Copy{};
};
// What these lines of a file are.
KeptCopy CopyIn(const std::vector<std::string>& lines);
// Reads one. A link is not followed, and nothing blocks or throws.
KeptCopy ReadCopy(const std::filesystem::path& file);

}  // namespace quillmark
