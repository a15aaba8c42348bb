#include "cli/commands/diff.h"

#include <CLI/CLI.hpp>

#include "catalogue/same_value.h"
#include "cli/config_file.h"
#include "cli/utf8.h"
#include "history/radio_copy.h"

namespace quillmark {

namespace {

// The two sides; without a second file the radio is that.
struct Sides {
  std::string A;
  std::string B;
};

std::vector<ComparedValue> WithRadio(CliConsole& radio, const ConfigValues& file) {
  radio.ConnectAndRead();
  std::vector<SettingId> wanted;
  for (const auto& [id, line] : file) wanted.push_back(id);
  const RadioTexts texts = radio.Texts(wanted);
  ConfigValues values = ValuesOf(CopyOf(radio.Main().Settings, texts).Lines);
  // No save writes what its mode has no use for.
  for (const auto& [id, text] : texts) {
    if (file.contains(id) && IsValue(SettingOf(id), text)) values.try_emplace(id, text);
  }
  std::vector<ComparedValue> rows = CompareValues(file, values);
  // What the file leaves alone is no difference to it.
  std::erase_if(rows, [](const ComparedValue& row) { return row.First.empty(); });
  return rows;
}

std::string Shown(const std::string& line) { return line.empty() ? "-" : ToUtf8(OnOneRow(line)); }

void PrintDifferent(Workbench& bench, const std::vector<ComparedValue>& rows,
                    const std::string& second) {
  std::vector<std::vector<std::string>> table{{"Setting", "A", second}};
  for (const ComparedValue& row : rows) {
    if (!row.Same) {
      table.push_back({ToUtf8(Subject(*row.What)), Shown(row.First), Shown(row.Second)});
    }
  }
  if (table.size() > 1) bench.Out.Table(table);
}

Exit Diff(Workbench& bench, const Sides& sides) {
  const ConfigValues first = ValuesOf(ConfigurationIn(sides.A));
  const auto rows = sides.B.empty() ? WithRadio(bench.Radio(), first)
                                    : CompareValues(first, ValuesOf(ConfigurationIn(sides.B)));
  if (bench.Options.Json) {
    bench.Out.Line(JsonOf(rows));
  } else {
    PrintDifferent(bench, rows, sides.B.empty() ? "The radio" : "B");
  }
  const auto different = std::ranges::count(rows, false, &ComparedValue::Same);
  if (different == 0) return Exit::Done;
  throw Failure{Exit::Different,
                std::to_string(different) + " of " + std::to_string(rows.size()) +
                    (different == 1 ? " settings is different." : " settings are different.")};
}

}  // namespace

void AddDiff(CLI::App& app, Action& chosen) {
  const auto sides = std::make_shared<Sides>();
  CLI::App* command = app.add_subcommand(
      "diff", "Compare a configuration file with another one, or with the radio");
  command->add_option("A", sides->A, "a configuration file")->required();
  command->add_option("B", sides->B, "another one (the radio)");
  command->callback(
      [&chosen, sides] { chosen = [sides](Workbench& bench) { return Diff(bench, *sides); }; });
}

}  // namespace quillmark
