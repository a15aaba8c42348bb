#pragma once

#include "cli/command.h"

namespace quillmark {

// "diff A [B]": the settings that differ between two configuration files, or between one and the
// radio.
void AddDiff(CLI::App& app, Action& chosen);

}  // namespace quillmark
