#include "cli/commands/set.h"

#include <CLI/CLI.hpp>

#include "catalogue/bounds.h"
#include "cli/outcome_table.h"
#include "cli/setting_names.h"
#include "cli/utf8.h"
#include "config/judged_lines.h"

namespace quillmark {

namespace {

using Change = SettingProgrammer::Change;

struct SetOptions {
  std::vector<std::string> Assignments;
  bool Force = false;
};

bool IsControl(char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }

// A control character would end the line, and what stands behind it would be a command.
std::string ValueOf(const std::string& assignment, std::size_t equals) {
  const auto value = FromUtf8(std::string_view(assignment).substr(equals + 1));
  const std::string name = assignment.substr(0, equals);
  if (!value)
    throw Failure{Exit::Usage, name + ": the value has characters that radios do not know."};
  if (value->empty()) throw Failure{Exit::Usage, name + ": there is no value behind the \"=\"."};
  if (std::ranges::any_of(*value, IsControl)) {
    throw Failure{Exit::Usage, name + ": the value has control characters."};
  }
  return *value;
}

Change ChangeOf(const std::string& assignment) {
  const std::size_t equals = assignment.find('=');
  if (equals == std::string::npos) {
    throw Failure{Exit::Usage, "What is to be set is written SETTING=VALUE, as in pwr=25."};
  }
  const Setting& setting = SettingNamed(std::string_view(assignment).substr(0, equals));
  if (TakenValues(setting, {}).empty()) {
    throw Failure{Exit::Usage, std::string(setting.View.Caption) + " can only be read."};
  }
  return {&setting, SettingProgrammer::CommandFor(setting, ValueOf(assignment, equals))};
}

// A change of the mode counts for those behind it.
void CheckBounds(const std::vector<Change>& changes, const Revision& revision,
                 const std::string& mode) {
  std::vector<std::string> lines;
  lines.reserve(changes.size());
  for (const Change& change : changes) lines.push_back(change.Command);
  for (const JudgedLine& line : JudgeLines(lines, revision, mode)) {
    throw Failure{Exit::Usage, line.What.Sentence() + ". Nothing was sent.",
                  "\"--force\" sends it all the same."};
  }
}

Exit Set(Workbench& bench, const SetOptions& options) {
  std::vector<Change> changes;
  for (const std::string& assignment : options.Assignments) {
    changes.push_back(ChangeOf(assignment));
  }
  // What no radio takes is told without one.
  if (!options.Force) CheckBounds(changes, {}, {});
  CliConsole& radio = bench.Radio();
  radio.ConnectAndRead();
  radio.CheckLoggedIn();
  Console& logic = radio.Logic();
  if (!options.Force) {
    CheckBounds(changes, logic.Shared().SoftwareRevision, radio.Main().ModeText());
  }
  radio.Act([&] { logic.Programmer().Send(changes); });
  radio.Read();
  return TellOutcome(bench, JudgeLastSent(radio.Main()));
}

}  // namespace

void AddSet(CLI::App& app, Action& chosen) {
  const auto options = std::make_shared<SetOptions>();
  CLI::App* command = app.add_subcommand("set", "Change settings of the radio");
  command->add_option("SETTING=VALUE", options->Assignments, "as in pwr=25 or \"Hop Time=7\"")
      ->required();
  command->add_flag("--force", options->Force, "send what radios are not known to take, too");
  command->callback([&chosen, options] {
    chosen = [options](Workbench& bench) { return Set(bench, *options); };
  });
}

}  // namespace quillmark
