#pragma once

#include <vector>

#include "config/config_values.h"
#include "platform/program_files.h"

namespace quillmark {

// What the pictures of the radio history show.

// Keeps some copies of a radio in the user's data folder.
void KeepSampleCopies(const ProgramFiles& files);

// Two configurations of which some settings differ.
std::vector<ComparedValue> SampleComparison();

}  // namespace quillmark
