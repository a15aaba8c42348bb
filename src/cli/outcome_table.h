#pragma once

#include <vector>

#include "cli/command.h"
#include "runs/outcomes.h"

namespace quillmark {

// What the radio has made of the settings that were sent last, by the read behind them.
std::vector<JudgedSetting> JudgeLastSent(frmOrvalent& main);

// Prints it, and ends the command: throws Failure unless the radio has taken all of it.
Exit TellOutcome(Workbench& bench, const std::vector<JudgedSetting>& judged);

}  // namespace quillmark
