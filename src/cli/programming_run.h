#pragma once

#include <string>
#include <vector>

#include "cli/command.h"
#include "controls/clickable.h"
#include "runs/outcomes.h"

namespace CLI {
class App;
}

namespace quillmark {

// A run that clears the radio and programs it with a configuration: what its commands have in
// common. It shows what will change and asks, keeps a copy of what the radio holds, and tells what
// the radio took.

struct RunOptions {
  bool Yes = false;    // do not ask
  bool Force = false;  // a file that was not saved by the console, too
  std::string Unit;    // a number from 10000 to 65000, or "file"; empty: the radio keeps its own
};

void AddRunOptions(CLI::App& command, RunOptions& options);

// Asks are possible, or not needed. Before a radio is touched. Throws Failure.
void CheckMayAsk(const RunOptions& options);

// The box of that title, with that part in its text, is the question before the run: it is shown,
// and asked unless that is not wanted.
void ExpectQuestion(Workbench& bench, const RunOptions& options, const std::string& title,
                    const std::string& part);

// Clicks the button of a run whose boxes are expected, reads the radio and tells what it took.
// Throws Failure.
Exit RunOverwriting(Workbench& bench, Clickable& entry);

// The radio has been read. `entry` is the button of the run, `lines` the configuration that it
// sends. Reads the radio behind it and gives what has become of each setting; until EndOverwriting
// the run counts as not at its end. Throws Failure.
std::vector<JudgedSetting> Programmed(Workbench& bench, const RunOptions& options, Clickable& entry,
                                      const std::vector<std::string>& lines);
// The same, with what it has come to printed. Throws Failure.
Exit RunProgramming(Workbench& bench, const RunOptions& options, Clickable& entry,
                    const std::vector<std::string>& lines);

}  // namespace quillmark
