#pragma once

#include "cli/command.h"

namespace quillmark {

// "program FILE": clears the radio and programs it with a configuration file.
void AddProgram(CLI::App& app, Action& chosen);

}  // namespace quillmark
