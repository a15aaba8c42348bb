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

// Who may read a file that is written: its owner alone, or whomever the user's own files are for.
enum class Readers { Owner, Usual };

// Writes a file in the place of the one of that name, which may be there or not: whole, or what was
// there stays. A link of that name is replaced, not followed. Throws FileError.
void RewriteFile(const ProgramFiles& files, const std::filesystem::path& path,
                 std::string_view text, Readers readers = Readers::Owner);

}  // namespace quillmark
