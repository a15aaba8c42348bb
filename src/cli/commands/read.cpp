#include "cli/commands/read.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/json.h"
#include "cli/setting_names.h"
#include "cli/settings_table.h"
#include "cli/utf8.h"

namespace quillmark {

namespace {

using Names = std::vector<std::string>;

bool IsWanted(const SettingRow& row, const std::vector<const Setting*>& wanted) {
  return wanted.empty() ? row.Visible() && row.What.Read
                        : std::ranges::find(wanted, &row.What) != wanted.end();
}

std::string EntryOf(const SettingRow& row, const RadioTexts& texts) {
  const auto found = texts.find(row.What.Id);
  std::optional<std::string> raw, value;
  std::optional<bool> changed;
  if (found != texts.end()) {
    raw = found->second;
    value = ValueIn(row.What, *raw);
    changed = ChangedFromFactory(row.What, *raw);
  }
  const std::string unit = row.What.Value.Unit;
  return JsonObject()
      .Add("caption", JsonText(row.What.View.Caption))
      .Add("value", JsonOrNull(value))
      .Add("unit", unit.empty() ? "null" : JsonText(unit))
      .Add("raw", JsonOrNull(raw))
      .Add("changed", JsonBool(changed))
      .Text();
}

std::string JsonOf(CliConsole& radio, const std::vector<const Setting*>& wanted) {
  const RadioTexts texts = radio.Texts({SettingId::XMAP});
  JsonObject settings;
  for (const SettingRow& row : radio.Main().Rows) {
    if (IsWanted(row, wanted)) settings.Add(row.What.Word, EntryOf(row, texts));
  }
  const std::string& revision = radio.Logic().Shared().InstalledFirmwareVersion;
  return JsonObject()
      .Add("version", "1")
      .Add("revision", revision.empty() ? "null" : JsonText(revision))
      .Add("settings", settings.Text())
      .Text();
}

void PrintRows(Workbench& bench, const std::vector<const Setting*>& wanted) {
  std::vector<std::vector<std::string>> rows;
  for (const Setting* setting : wanted) {
    const SettingRow& row = bench.Radio().Main().At(setting->Id);
    rows.push_back({ToUtf8(setting->View.Caption), ToUtf8(OnOneRow(row.Text()))});
  }
  bench.Out.Table(rows);
}

void PrintTable(Workbench& bench) {
  std::string table = ToUtf8(SettingsTable(bench.Radio().Main()));
  table.pop_back();
  bench.Out.Line(table);
}

// The settings that this radio has, and that gave no answer.
void CheckWhole(CliConsole& radio) {
  if (radio.Logic().LastRead().Whole) return;
  throw Failure{Exit::Different, "The radio did not answer to every question.",
                "Read it again; what is shown of those settings is not known."};
}

Exit Read(Workbench& bench, const Names& names) {
  std::vector<const Setting*> wanted;
  for (const std::string& name : names) wanted.push_back(&SettingNamed(name));
  CliConsole& radio = bench.Radio();
  radio.ConnectAndRead();
  if (bench.Options.Json) {
    bench.Out.Line(JsonOf(radio, wanted));
  } else if (wanted.empty()) {
    PrintTable(bench);
  } else {
    PrintRows(bench, wanted);
  }
  CheckWhole(radio);
  return Exit::Done;
}

}  // namespace

void AddRead(CLI::App& app, Action& chosen) {
  const auto names = std::make_shared<Names>();
  CLI::App* command = app.add_subcommand("read", "Read the radio's settings and print them");
  command->add_option("SETTING", *names, "only these, by the radio's word or the caption");
  command->callback(
      [&chosen, names] { chosen = [names](Workbench& bench) { return Read(bench, *names); }; });
}

}  // namespace quillmark
