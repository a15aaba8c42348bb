#include "cli/commands/preset.h"

#include <CLI/CLI.hpp>

#include "cli/config_file.h"
#include "cli/programming_run.h"
#include "config/presets/preset_file.h"

namespace quillmark {

namespace {

struct PresetOptions : RunOptions {
  std::size_t Number = 1;
};

Exit Preset(Workbench& bench, const PresetOptions& options) {
  const std::size_t slot = options.Number - 1;
  const auto file = PresetFile(bench.Machine().Platform.Files, slot);
  CheckMayAsk(options);
  Button& button = bench.Radio().Main().cmdPre.at(slot);
  if (button.Tag() == QuickTaskControls::EmptyTag) {
    throw Failure{Exit::BadFile, "Preset " + std::to_string(options.Number) + " is empty."};
  }
  const auto lines = ConfigurationIn(file);
  bench.Radio().ConnectAndRead();
  return RunProgramming(bench, options, button, lines);
}

}  // namespace

void AddPreset(CLI::App& app, Action& chosen) {
  const auto options = std::make_shared<PresetOptions>();
  CLI::App* command = app.add_subcommand("preset", "Clear the radio and program it with a preset");
  command->add_option("N", options->Number, "its number")
      ->required()
      ->check(CLI::Range(std::size_t{1}, PresetSlots));
  AddRunOptions(*command, *options);
  command->callback([&chosen, options] {
    chosen = [options](Workbench& bench) { return Preset(bench, *options); };
  });
}

}  // namespace quillmark
