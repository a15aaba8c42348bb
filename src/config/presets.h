#pragma once

#include <cstddef>
#include <filesystem>

#include "app/frmOrvalent.h"
#include "platform/program_files.h"

namespace quillmark {

// The preset file of a slot, counted from 0; it may not exist.
std::filesystem::path PresetFile(const ProgramFiles& files, std::size_t slot);

// Enables "SAVE TO PRESET" while one of the six slots has no file, else disables it.
void UpdateSavePresetEnabled(frmOrvalent& main, const ProgramFiles& files);

}  // namespace quillmark
