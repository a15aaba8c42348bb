#pragma once

#include "cli/command.h"

namespace quillmark {

// "login", "logout", "code": what needs a secret, and its end. No secret stands on the command
// line.
void AddLogin(CLI::App& app, Action& chosen);
void AddLogout(CLI::App& app, Action& chosen);
void AddCode(CLI::App& app, Action& chosen);

}  // namespace quillmark
