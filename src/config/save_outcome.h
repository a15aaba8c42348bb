#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "config/replaced_file.h"

namespace quillmark {

// What a save has left on the disk, as a sentence for its user.

// "Saved 33 settings to /site/radio.txt."
std::string SavedSentence(std::size_t settings, const std::filesystem::path& file);
// "The save was interrupted. /site/radio.txt holds 7 of 33 settings, the old file is beside it
// as radio.txt.bak." `expected` counts the settings that this radio has; 0: that is not known.
std::string InterruptedSentence(std::size_t written, std::size_t expected,
                                const std::filesystem::path& file,
                                const ReplacedFile::Remains& left);

}  // namespace quillmark
