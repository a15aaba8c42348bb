#pragma once

#include "cli/command.h"

namespace quillmark {

// "preset N": clears the radio and programs it with one of the presets of the main window.
void AddPreset(CLI::App& app, Action& chosen);

}  // namespace quillmark
