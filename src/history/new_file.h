#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/program_files.h"

namespace quillmark {

// Writes a new file: `stem` and `ending`, or "stem-002", "stem-003", ... where a name is taken;
// none is replaced. It is there whole, or not at all, and for its owner alone. Returns it. Throws
// FileError.
std::filesystem::path WriteNewFile(const ProgramFiles& files, const std::filesystem::path& folder,
                                   const std::string& stem, const std::string& ending,
                                   std::string_view text);

}  // namespace quillmark
