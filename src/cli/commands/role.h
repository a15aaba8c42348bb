#pragma once

#include "cli/command.h"

namespace quillmark {

// "role master|remote|repeater|sub-remote": clears the radio and gives it a role, as the buttons
// for a new radio do.
void AddRole(CLI::App& app, Action& chosen);

}  // namespace quillmark
