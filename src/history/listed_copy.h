#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "config/config_values.h"
#include "history/radio_copy.h"
#include "platform/desktop.h"

namespace quillmark {

// What the window of the history tells of one file among the copies. Nothing of it is trusted: a
// file may have been put there by anybody.
struct ListedCopy {
  std::filesystem::path File;
  std::string When{};        // its time, the user's; the file's name where that tells none
  std::string Reason{};      // "read"
  std::string Name{};        // the user's; mostly empty
  std::string Trouble{};     // "cut short"; empty: it is a sound copy
  std::string Changes{};     // against the one before: "PWR 30 dBm to 27 dBm; 2 more"
  std::string AllChanges{};  // the same whole, a setting a line
  bool Pinned = false;
  bool Plain = true;      // a plain file, which can be removed
  bool Compares = false;  // its settings can be compared
  std::string Words{};    // all that a search looks at, folded

  // "11/23/2026 15:04:05, before a preset"
  std::string Title() const;
};

// Reads one. `values` gets its settings, none when they can't be compared; null: not wanted.
ListedCopy ListCopy(const std::filesystem::path& file, const Desktop& desktop,
                    ConfigValues* values);

// Tells in `newer` what has changed since an older copy. An extension map that only one of the two
// has does not count: a read of the main window brings none.
void NoteChanges(ListedCopy& newer, const ConfigValues& now, const ConfigValues& before);

// For a search without regard to case, in all letters of Latin-1.
std::string Folded(std::string_view text);

}  // namespace quillmark
