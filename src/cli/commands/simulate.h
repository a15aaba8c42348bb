#pragma once

#include "cli/command.h"

namespace quillmark {

// "simulate": a simulated radio, to try the console on.
void AddSimulate(CLI::App& app, Action& chosen);

}  // namespace quillmark
