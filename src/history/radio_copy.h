#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalogue/radio_texts.h"
#include "catalogue/settings.h"

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

// The name of a file of that time, without its ending: "2026-11-23_15-04-05"; and the time, in
// seconds since 1970, that such a name tells.
std::string TimeName(std::int64_t utcSeconds);
std::optional<std::int64_t> TimeOfName(const std::string& stem);

// The name of a radio's folder: its serial number, if that is 1 to 24 letters and digits, as what a
// radio says is no file's name. Else empty.
std::string FolderName(const std::string& serial);

}  // namespace quillmark
