#pragma once

#include "cli/command.h"

namespace quillmark {

// "batch": radio after radio, on one port or several.
void AddBatch(CLI::App& app, Action& chosen);

}  // namespace quillmark
