#pragma once

#include "cli/command.h"

namespace quillmark {

// "check FILE": whether a configuration or firmware file is sound. Needs no radio.
void AddCheck(CLI::App& app, Action& chosen);

}  // namespace quillmark
