#pragma once

#include "cli/command.h"

namespace quillmark {

// "read [SETTING...]": all settings of the radio, or those that are named.
void AddRead(CLI::App& app, Action& chosen);

}  // namespace quillmark
