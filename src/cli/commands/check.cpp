#include "cli/commands/check.h"

#include <CLI/CLI.hpp>

#include "cli/config_file.h"
#include "cli/json.h"
#include "cli/utf8.h"
#include "config/judged_lines.h"
#include "firmware/firmware_file.h"
#include "firmware/firmware_version.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

// The file, and the radio that a configuration is judged for.
struct Checked {
  std::string File;
  std::string Revision;  // "3.2.0"; empty: any
  std::string Mode;      // "M", "R" or "X"; empty: any
};

// What was found: what it is, and what is wrong with it, a sentence each.
struct Findings {
  std::string Kind;   // "configuration", "firmware"
  std::string Sound;  // "33 settings", "revision 3.2.0"
  std::vector<std::string> Wrong{};
};

std::optional<Findings> CheckFirmware(CliMachine& machine, const std::filesystem::path& path) {
  FirmwareFile file;
  if (file.Open(path)) return std::nullopt;
  const FirmwareHeader header = ReadFirmwareHeader(file.Read(FirmwareHeaderLength));
  if (!header.IsHeaderRecord) return std::nullopt;
  Findings found{.Kind = "firmware", .Sound = "revision " + header.Version};
  if (!header.IsForThisRadio) found.Wrong.emplace_back("it is not for these radios");
  file.Rewind();
  FirmwareFindings records;
  machine.Base.Events.Deliver([&] { records = LookThrough(file, machine.Base.Events); });
  machine.CheckSignals();
  if (records.Fault) {
    found.Wrong.push_back("line " + std::to_string(records.Fault->Line) + ": " +
                          records.Fault->What);
  }
  return found;
}

Findings CheckConfiguration(const Checked& checked) {
  const auto lines = ConfigurationIn(checked.File);
  const auto settings = ValuesOf(lines).size();
  Findings found{.Kind = "configuration",
                 .Sound = std::to_string(settings) + (settings == 1 ? " setting" : " settings")};
  const Revision revision = checked.Revision.empty() ? Revision{} : RevisionOf(checked.Revision);
  const std::string mode = checked.Mode.empty() ? "" : "MODE " + Upper(checked.Mode);
  for (const JudgedLine& line : JudgeLines(lines, revision, mode)) {
    found.Wrong.push_back(line.Sentence());
  }
  return found;
}

std::string JsonOf(const Findings& found) {
  JsonArray wrong;
  for (const std::string& sentence : found.Wrong) wrong.Add(JsonText(sentence));
  return JsonObject()
      .Add("version", "1")
      .Add("kind", JsonText(found.Kind))
      .Add("holds", JsonText(found.Sound))
      .Add("wrong", wrong.Text())
      .Text();
}

Exit Check(Workbench& bench, const Checked& checked) {
  const auto firmware = CheckFirmware(bench.Machine(), checked.File);
  const Findings found = firmware ? *firmware : CheckConfiguration(checked);
  if (bench.Options.Json) {
    bench.Out.Line(JsonOf(found));
  } else {
    bench.Out.Line(found.Kind + ", " + ToUtf8(OnOneRow(found.Sound)));
    for (const std::string& sentence : found.Wrong) bench.Out.Line(ToUtf8(OnOneRow(sentence)));
  }
  if (found.Wrong.empty()) return Exit::Done;
  throw Failure{Exit::BadFile,
                PathText(checked.File) + " is not sound: " + found.Wrong.front() + "."};
}

}  // namespace

void AddCheck(CLI::App& app, Action& chosen) {
  const auto checked = std::make_shared<Checked>();
  CLI::App* command =
      app.add_subcommand("check", "Check a configuration or firmware file, without a radio");
  command->add_option("FILE", checked->File, "the file")->required();
  command->add_option("--revision", checked->Revision, "judge it for this firmware revision")
      ->check([](const std::string& text) {
        return HasVersionForm(text) && text.size() == 5 ? std::string()
                                                        : std::string("a revision such as 3.2.0");
      });
  command->add_option("--mode", checked->Mode, "judge it for a radio in this mode: M, R or X")
      ->check(CLI::IsMember({"M", "R", "X"}, CLI::ignore_case));
  command->callback([&chosen, checked] {
    chosen = [checked](Workbench& bench) { return Check(bench, *checked); };
  });
}

}  // namespace quillmark
