#include "cli/run.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <exception>

#include "app/version.h"
#include "cli/command.h"
#include "cli/commands/batch.h"
#include "cli/commands/check.h"
#include "cli/commands/diagnostics.h"
#include "cli/commands/diff.h"
#include "cli/commands/history.h"
#include "cli/commands/login.h"
#include "cli/commands/ports.h"
#include "cli/commands/preset.h"
#include "cli/commands/program.h"
#include "cli/commands/read.h"
#include "cli/commands/role.h"
#include "cli/commands/save.h"
#include "cli/commands/set.h"
#include "cli/commands/simulate.h"
#include "cli/exit_codes.h"
#include "qt/base/application.h"

namespace quillmark {

namespace {

constexpr const char* program = "quillmark";

// In the order of the help.
constexpr AddCommand commands[] = {
    AddPorts, AddRead,    AddSet,     AddSave,   AddProgram,  AddPreset,  AddBatch,
    AddRole,  AddHistory, AddRestore, AddSignal, AddZones,    AddQuality, AddDiff,
    AddCheck, AddLogin,   AddLogout,  AddCode,   AddSimulate,
};

constexpr const char* exitCodes =
    "Exit codes: 0 done, 1 different or settings refused, 2 usage, 3 no radio or port,\n"
    "4 denied (log in first), 5 a file can't be used, 6 interrupted, 7 the radio may be "
    "incomplete.";

void Tell(const Failure& failure) { std::fprintf(stderr, "%s\n", SentenceOf(failure).c_str()); }

void Describe(CLI::App& app, GlobalOptions& options) {
  app.name(program);
  app.set_version_flag("--version", std::string(program) + " " + VersionText);
  app.footer(exitCodes);
  app.add_option("--port", options.Port,
                 "the radio's port: a device, or a number of \"quillmark ports\" (the stored one)")
      ->type_name("DEVICE|NUMBER");
  app.add_flag("--json", options.Json, "print JSON");
  app.add_flag("--quiet", options.Quiet, "tell no progress");
  app.require_subcommand(1);
}

// A reader that has gone wants no more of it: that is no failure.
Exit RunAction(const Action& action, const GlobalOptions& options) {
  Workbench bench(options);
  try {
    const Exit code = action(bench);
    bench.Close();
    return code;
  } catch (const ReaderGone&) {
    return Exit::Done;
  }
}

int RunChosen(const Action& action, const GlobalOptions& options) {
  try {
    return static_cast<int>(RunAction(action, options));
  } catch (const Failure& failure) {
    Tell(failure);
    return static_cast<int>(failure.Code);
  }
}

}  // namespace

int RunProgram(int argc, char** argv) {
  // A reader that goes away shows when something is written.
  std::signal(SIGPIPE, SIG_IGN);
  GlobalOptions options;
  Action chosen;
  CLI::App app("Configures and watches Quillmark SS data radios on a serial port.");
  Describe(app, options);
  for (const AddCommand add : commands) add(app, chosen);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    Tell({Exit::Usage, std::string(error.what()) + "."});
    return static_cast<int>(Exit::Usage);
  }
  const BaseApplication application(argc, argv, program);
  return RunChosen(chosen, options);
}

}  // namespace quillmark
