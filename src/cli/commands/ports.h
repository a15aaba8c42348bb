#pragma once

#include "cli/command.h"

namespace quillmark {

// "ports": the serial ports of this computer, and whether they may be opened. Opens none.
void AddPorts(CLI::App& app, Action& chosen);

}  // namespace quillmark
