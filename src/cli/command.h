#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/cli_console.h"
#include "cli/cli_machine.h"
#include "cli/printer.h"

namespace CLI {
class App;
}

namespace quillmark {

// What a command works with. The machine and the console are made when a command first asks for
// them: one that needs no radio touches no port.
class Workbench {
 public:
  explicit Workbench(const GlobalOptions& options) : Options(options) {}
  ~Workbench();
  Workbench(const Workbench&) = delete;
  Workbench& operator=(const Workbench&) = delete;

  const GlobalOptions& Options;
  Printer Out;

  CliMachine& Machine();
  CliConsole& Radio();
  // Ends the link, if there is one. Throws Failure when a signal has come.
  void Close();

  // A person sits at a terminal, so that a question can be asked.
  static bool CanAsk();
  // Asks on stderr; true when the person's line begins with "y". The question is UTF-8. The
  // application's boxes may call it.
  bool Ask(const std::string& question);

 private:
  std::optional<CliMachine> machine;
  std::optional<CliConsole> console;
};

// What a command does, when its line has been read. Throws Failure.
using Action = std::function<Exit(Workbench& bench)>;

// Each command adds itself to the program's line: its name, its options, and what puts its action
// into `chosen` when it is the one that was named.
using AddCommand = void (*)(CLI::App& app, Action& chosen);

}  // namespace quillmark
