#pragma once

#include "cli/command.h"

namespace quillmark {

// "signal", "zones" and "quality": what the windows of the link's diagnostics show, a line a
// second.
void AddSignal(CLI::App& app, Action& chosen);
void AddZones(CLI::App& app, Action& chosen);
void AddQuality(CLI::App& app, Action& chosen);

}  // namespace quillmark
