#pragma once

#include "cli/command.h"

namespace quillmark {

// "set SETTING=VALUE...": changes settings of the radio and tells what it took.
void AddSet(CLI::App& app, Action& chosen);

}  // namespace quillmark
