#include "cli/commands/program.h"

#include <CLI/CLI.hpp>

#include "cli/config_file.h"
#include "cli/programming_run.h"

namespace quillmark {

namespace {

struct ProgramOptions : RunOptions {
  std::string File;
};

Exit Program(Workbench& bench, const ProgramOptions& options) {
  const auto file = std::filesystem::absolute(options.File);
  const auto lines = ConfigurationIn(file);
  CheckMayAsk(options);
  bench.Radio().ConnectAndRead();
  bench.Machine().Boxes.Choose(file);
  return RunProgramming(bench, options, bench.Radio().Main().cmdProgramFromFile, lines);
}

}  // namespace

void AddProgram(CLI::App& app, Action& chosen) {
  const auto options = std::make_shared<ProgramOptions>();
  CLI::App* command =
      app.add_subcommand("program", "Clear the radio and program it with a configuration file");
  command->add_option("FILE", options->File, "the file")->required();
  AddRunOptions(*command, *options);
  command->callback([&chosen, options] {
    chosen = [options](Workbench& bench) { return Program(bench, *options); };
  });
}

}  // namespace quillmark
