#pragma once

#include "cli/command.h"

namespace quillmark {

// "save FILE": writes the radio's configuration into a file.
void AddSave(CLI::App& app, Action& chosen);

}  // namespace quillmark
