#include "cli/command.h"

#include <unistd.h>

#include <cstdio>

#include "cli/exit_codes.h"
#include "cli/line_input.h"

namespace quillmark {

// The console stands on the machine.
Workbench::~Workbench() {
  console.reset();
  machine.reset();
}

CliMachine& Workbench::Machine() {
  if (!machine) machine.emplace(Options);
  return *machine;
}

CliConsole& Workbench::Radio() {
  if (!console) console.emplace(Machine(), Options.Quiet);
  return *console;
}

void Workbench::Close() {
  if (!console) return;
  console->End();
  machine->CheckSignals();
}

bool Workbench::CanAsk() { return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0; }

bool Workbench::Ask(const std::string& question) {
  std::fprintf(stderr, "%s [y/N] ", question.c_str());
  try {
    const std::string line = ReadLine(Machine(), STDIN_FILENO).value_or("");
    return line.starts_with('y') || line.starts_with('Y');
  } catch (const Failure&) {
    // A signal has come. The logic may be waiting for the answer; the command fails behind it.
    return false;
  }
}

}  // namespace quillmark
