#include "cli/commands/batch.h"

#include <CLI/CLI.hpp>

#include "cli/batch/batch_files.h"
#include "cli/batch/batch_run.h"
#include "cli/batch/port_worker.h"

namespace quillmark {

namespace {

Exit Batch(Workbench& bench, BatchOptions& options) {
  if (options.Worker >= 0) return ServePort(bench.Options, options);
  if (options.Ports.empty() && !bench.Options.Port.empty()) options.Ports = {bench.Options.Port};
  if (options.Ports.empty()) {
    throw Failure{Exit::Usage, "No port is named.", "Name one or more with \"--ports\"."};
  }
  if (options.Report.empty()) {
    throw Failure{Exit::Usage, "No report is named.", "Name one with \"--report\"."};
  }
  if (!options.Yes) {
    throw Failure{Exit::Usage, "This clears every radio that comes to the port.",
                  "\"--yes\" does it."};
  }
  const BatchFiles sound(options.Source, options.Table);
  return BatchRun(bench, options).Run();
}

}  // namespace

void AddBatch(CLI::App& app, Action& chosen) {
  const auto options = std::make_shared<BatchOptions>();
  CLI::App* command =
      app.add_subcommand("batch", "Program radio after radio, on one port or several");
  command
      ->add_option("FILE|DIR", options->Source,
                   "a configuration for all, or a folder with SERIAL.txt or unit-UNIT.txt for each")
      ->required();
  command->add_option("--csv", options->Table,
                      "a table with a row for each radio; its columns fill in ${column}");
  command->add_option("--report", options->Report,
                      "the report: NAME.csv, and NAME.jsonl beside it");
  command->add_option("--ports", options->Ports, "several ports at once")
      ->type_name("PORT,PORT,...")
      ->delimiter(',');
  command->add_option("--count", options->Count, "end after so many radios")
      ->check(CLI::PositiveNumber);
  command->add_flag("--resume", options->Resume, "go on with the report; skip what is done in it");
  command->add_flag("--yes", options->Yes, "clear the radios without a question");
  command->add_flag(
      "--force", options->Force,
      "send files without the console's header and values outside of the bounds, too");
  command->add_option("--worker", options->Worker)->group("");
  command->callback([&chosen, options] {
    chosen = [options](Workbench& bench) { return Batch(bench, *options); };
  });
}

}  // namespace quillmark
