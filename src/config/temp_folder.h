#pragma once

#include <filesystem>

#include "platform/program_files.h"

namespace quillmark {

// The scratch area in the user's data folder, where a report is written before it is printed.
std::filesystem::path TempFolder(const ProgramFiles& files);

// Empties the scratch area of its plain files, and removes links without following them; makes the
// folder when it is missing. A file that can't be removed stays.
void ClearTempDirectory(const ProgramFiles& files);

}  // namespace quillmark
