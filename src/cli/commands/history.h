#pragma once

#include "cli/command.h"

namespace quillmark {

// "history [SERIAL]": lists the radios of which there are copies, or the copies of one.
void AddHistory(CLI::App& app, Action& chosen);

// "restore SERIAL@DATE": clears the radio and programs it with a copy of it.
void AddRestore(CLI::App& app, Action& chosen);

}  // namespace quillmark
