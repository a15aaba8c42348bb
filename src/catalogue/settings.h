#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/setting.h"

namespace quillmark {

// The catalogue: everything that the console knows of the radio's settings, one row each, in the
// order of their ids. Rows of windows, reads, boxes, lines of files, texts: all of it is made from
// these rows. A window is given the rows that it works with, so that a test can give it more.

// All settings. They live for the whole run.
std::span<const Setting> AllSettings();

// The place of a setting in the catalogue, from 0.
constexpr std::size_t PlaceOf(SettingId id) { return static_cast<std::size_t>(id); }
const Setting& SettingOf(SettingId id);

// The settings of a file, in the order in which the main window saves them.
std::vector<const Setting*> SavedOrder(std::span<const Setting> settings);
// The settings of the store and restore window, in the order in which they are programmed. It reads
// and saves them in the order of the catalogue.
std::vector<const Setting*> ProgramOrder(std::span<const Setting> settings);

// What a line of a file is known by: capitals. Empty for what no file holds.
std::string FileKey(const Setting& setting);

// The lines that set it to its factory value: none, one, or two for a value that is also switched.
std::vector<std::string> FactoryLines(const Setting& setting);

}  // namespace quillmark
