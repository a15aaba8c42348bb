#include "cli/commands/history.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>

#include "cli/config_file.h"
#include "cli/json.h"
#include "cli/kept_copies.h"
#include "cli/programming_run.h"
#include "cli/settings_table.h"
#include "cli/utf8.h"
#include "history/copy_reader.h"
#include "history/listed_radio.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string Cell(const std::string& text) { return ToUtf8(OnOneRow(text)); }

std::string JsonList(const char* name, const JsonArray& list) {
  return JsonObject().Add("version", "1").Add(name, list.Text()).Text();
}

Exit PrintRadios(Workbench& bench, const CopyStore& store) {
  Rows rows{{"Radio", "Unit", "Owner", "Copies", "Last copy (UTC)"}};
  JsonArray list;
  for (const ListedRadio& radio : ListRadios(store, bench.Machine().Screen)) {
    const std::string last = PathText(radio.Files.front().stem());
    const std::string copies = std::to_string(radio.Files.size());
    const auto& cells = radio.Row.Cells;
    rows.push_back({Cell(radio.Folder), Cell(cells[1]), Cell(cells[2]), copies, Cell(last)});
    list.Add(JsonObject()
                 .Add("serial", JsonText(radio.Folder))
                 .Add("unit", JsonText(cells[1]))
                 .Add("owner", JsonText(cells[2]))
                 .Add("copies", copies)
                 .Add("last", JsonText(last))
                 .Text());
  }
  if (bench.Options.Json) {
    bench.Out.Line(JsonList("radios", list));
  } else if (rows.size() > 1) {
    bench.Out.Table(rows);
  }
  return Exit::Done;
}

std::string JsonOf(const ListedCopy& copy) {
  return JsonObject()
      .Add("time", JsonText(PathText(copy.File.stem())))
      .Add("file", JsonText(PathText(copy.File)))
      .Add("kept", JsonText(copy.Reason))
      .Add("name", JsonText(copy.Name))
      .Add("pinned", JsonBool(copy.Pinned))
      .Add("trouble", copy.Trouble.empty() ? "null" : JsonText(copy.Trouble))
      .Add("changes", JsonText(copy.AllChanges))
      .Text();
}

Exit PrintCopies(Workbench& bench, const CopyStore& store, const std::string& serial) {
  auto files = store.FilesOf(CopiesOf(store, serial));
  std::ranges::reverse(files);
  CopyReader reader(bench.Machine().Screen);
  reader.Begin(std::move(files));
  while (!reader.Done()) reader.Step(Slice(bench.Machine().Base.Events));
  Rows rows{{"Copy (UTC)", "Kept", "Name", "Changes"}};
  JsonArray list;
  for (const auto& copy : reader.Copies()) {
    const std::string& kept = copy->Trouble.empty() ? copy->Reason : copy->Trouble;
    rows.push_back({Cell(PathText(copy->File.stem())),
                    Cell(kept + (copy->Pinned ? " (pinned)" : "")), Cell(copy->Name),
                    Cell(copy->Changes)});
    if (bench.Options.Json) list.Add(JsonOf(*copy));
  }
  if (bench.Options.Json) {
    bench.Out.Line(JsonList("copies", list));
  } else if (rows.size() > 1) {
    bench.Out.Table(rows);
  }
  return Exit::Done;
}

Exit History(Workbench& bench, const std::string& serial) {
  const CopyStore store(bench.Machine().Platform.Files);
  return serial.empty() ? PrintRadios(bench, store) : PrintCopies(bench, store, serial);
}

struct RestoreOptions {
  std::string Copy;  // "00123456@2026-11-23"
  RunOptions Run;
};

void CheckRadio(CliConsole& radio, const ChosenCopy& chosen) {
  const std::string& connected = radio.Main().At(SettingId::SerialNumber).Text();
  if (chosen.Copy.Serial == connected) return;
  throw Failure{Exit::Usage,
                "The copy is of " + chosen.Copy.Serial + "; connected is " + connected +
                    ". Nothing was sent.",
                "\"quillmark program\" with the file of the copy programs another radio."};
}

// The run clears the radio first: what the copy does not have would be lost.
void CheckWhole(CliConsole& radio, const ChosenCopy& chosen) {
  if (!chosen.Copy.Complete) {
    throw Failure{Exit::BadFile, "The copy is incomplete: some settings are missing in it.",
                  "\"--force\" programs it; those get their default values."};
  }
  const Setting& map = SettingOf(SettingId::XMAP);
  if (ValuesOf(chosen.Copy.Lines).contains(map.Id)) return;
  const RadioTexts texts = radio.Texts({map.Id});
  const auto own = texts.find(map.Id);
  if (own == texts.end() || !ChangedFromFactory(map, own->second).value_or(true)) return;
  throw Failure{
      Exit::BadFile,
      "The copy has no extension map, and the radio would lose its own, " + own->second + ".",
      "\"--force\" programs it; \"quillmark set xmap=...\" brings the map back."};
}

Exit Restore(Workbench& bench, const RestoreOptions& options) {
  const std::size_t at = options.Copy.find('@');
  if (at == std::string::npos) {
    throw Failure{Exit::Usage, "A copy is named SERIAL@DATE, as in 00123456@2026-11-23."};
  }
  // Before the radio is read: that may keep a newer copy.
  const CopyStore store(bench.Machine().Platform.Files);
  const ChosenCopy chosen = CopyAt(store, options.Copy.substr(0, at), options.Copy.substr(at + 1));
  CheckMayAsk(options.Run);
  CliConsole& radio = bench.Radio();
  radio.ConnectAndRead();
  CheckRadio(radio, chosen);
  if (!options.Run.Force) CheckWhole(radio, chosen);
  if (!bench.Options.Quiet) {
    std::fprintf(stderr, "The copy of %s UTC, %s.\n", chosen.Time.c_str(),
                 Cell(chosen.Copy.Reason).c_str());
  }
  bench.Machine().Boxes.Choose(chosen.File);
  return RunProgramming(bench, options.Run, radio.Main().cmdProgramFromFile,
                        ConfigurationIn(chosen.File));
}

}  // namespace

void AddHistory(CLI::App& app, Action& chosen) {
  const auto serial = std::make_shared<std::string>();
  CLI::App* command =
      app.add_subcommand("history", "List the radios that were read, or the copies of one");
  command->add_option("SERIAL", *serial, "the serial number of a radio");
  command->footer("Example: quillmark history 00123456");
  command->callback([&chosen, serial] {
    chosen = [serial](Workbench& bench) { return History(bench, *serial); };
  });
}

void AddRestore(CLI::App& app, Action& chosen) {
  const auto options = std::make_shared<RestoreOptions>();
  CLI::App* command =
      app.add_subcommand("restore", "Clear the radio and program it with a copy of it");
  command
      ->add_option("SERIAL@DATE", options->Copy,
                   "the newest copy of that radio at or before the date, in UTC")
      ->required();
  AddRunOptions(*command, options->Run);
  command->footer("Example: quillmark restore 00123456@2026-11-23 --yes");
  command->callback([&chosen, options] {
    chosen = [options](Workbench& bench) { return Restore(bench, *options); };
  });
}

}  // namespace quillmark
