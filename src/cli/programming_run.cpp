#include "cli/programming_run.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>

#include "catalogue/same_value.h"
#include "cli/outcome_table.h"
#include "cli/utf8.h"
#include "config/config_lines.h"
#include "config/config_values.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr const char* fromFile = "file";

std::string InRows(const std::string& text) {
  std::string rows;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
    rows += text[at] == '\r' ? '\n' : text[at];
  }
  return ToUtf8(rows);
}

constexpr const char* askedLast = "Program the radio?";

void ShowPlan(const MessageBox& plan) {
  const std::string question = std::string("\r\n\r\n") + askedLast;
  std::string text = plan.Text;
  if (text.ends_with(question)) text.resize(text.size() - question.size());
  std::fprintf(stderr, "%s\n%s\n", InRows(text).c_str(), InRows(plan.Details).c_str());
}

// Two radios with one unit number disturb each other.
void CheckUnit(CliConsole& radio, const RunOptions& options,
               const std::vector<std::string>& lines) {
  const Setting& unit = SettingOf(SettingId::UnitAddr);
  const ConfigValues values = ValuesOf(lines);
  const auto sent = values.find(unit.Id);
  if (sent == values.end() || !options.Unit.empty()) return;
  const std::string& own = radio.Main().At(unit.Id).Text();
  if (SameValue(unit, own, sent->second)) return;
  throw Failure{Exit::Usage,
                "The configuration has the unit number of another radio, " + sent->second +
                    "; this one has " + own + ". Nothing was sent.",
                "\"--unit N\" gives it N, 10000 to 65000; \"--unit file\" that of the file."};
}

void CheckSaved(const RunOptions& options, const std::vector<std::string>& lines) {
  if (options.Force || IsSavedConfig(lines)) return;
  throw Failure{Exit::BadFile, "The file was not saved by the console: its header is missing.",
                "\"--force\" sends it all the same."};
}

// The box is asked for each line with that word in it, whatever it sets.
std::string UnitFor(const std::string& unit, const InputBox& box) {
  const bool setsUnit = FindAnyCase(box.Default, "UNIT") == 1;
  return setsUnit && unit != fromFile ? unit : "";
}

void ExpectBoxes(Workbench& bench, const RunOptions& options) {
  HeadlessDialogs& boxes = bench.Machine().Boxes;
  ExpectQuestion(bench, options, "What Will Change", "");
  boxes.Expect("File Error", "does not appear to be", Answer::Yes);
  boxes.Expect("Program from Preset", "", Answer::Yes);
  boxes.Expect(ProgramTitle, "New Unit: ", Answer::Ok);
  boxes.OnInput = [&options](const InputBox& box) { return UnitFor(options.Unit, box); };
}

void TellCopy(Workbench& bench) {
  const auto& copy = bench.Radio().Logic().History().BeforeLastRun();
  if (copy.empty() || bench.Options.Quiet || isatty(STDERR_FILENO) == 0) return;
  std::fprintf(stderr, "What the radio held before is kept in %s.\n", copy.c_str());
}

// Clicks the button and reads the radio behind the run.
std::vector<JudgedSetting> Overwritten(Workbench& bench, Clickable& entry) {
  CliConsole& radio = bench.Radio();
  radio.Click(entry);
  radio.CheckBoxes();
  if (!radio.Overwriting()) {
    throw Failure{Exit::Interrupted, "Not wanted: nothing was sent.", " "};
  }
  radio.Read();
  return JudgeLastSent(radio.Main());
}

Exit Told(Workbench& bench, const std::vector<JudgedSetting>& judged) {
  const Exit code = TellOutcome(bench, judged);
  bench.Radio().EndOverwriting();
  TellCopy(bench);
  return code;
}

}  // namespace

void AddRunOptions(CLI::App& command, RunOptions& options) {
  command.add_flag("--yes", options.Yes, "do not ask");
  command.add_flag("--force", options.Force, "send a file without the console's header, too");
  command
      .add_option("--unit", options.Unit,
                  "the radio's unit number, 10000 to 65000, or \"file\" for that of the file")
      ->type_name("N|file")
      ->check(CLI::IsMember({fromFile}) | CLI::Range(10000, 65000));
}

void CheckMayAsk(const RunOptions& options) {
  if (options.Yes || Workbench::CanAsk()) return;
  throw Failure{Exit::Usage, "This clears all settings of the radio, and there is nobody to ask.",
                "\"--yes\" does it without a question."};
}

void ExpectQuestion(Workbench& bench, const RunOptions& options, const std::string& title,
                    const std::string& part) {
  bench.Machine().Boxes.Expect(title, part, [&bench, &options](const MessageBox& plan) {
    if (!options.Yes || !bench.Options.Quiet) ShowPlan(plan);
    if (!options.Yes && !bench.Ask(askedLast)) return Answer::No;
    bench.Radio().BeginOverwriting();
    return Answer::Yes;
  });
}

Exit RunOverwriting(Workbench& bench, Clickable& entry) {
  return Told(bench, Overwritten(bench, entry));
}

std::vector<JudgedSetting> Programmed(Workbench& bench, const RunOptions& options, Clickable& entry,
                                      const std::vector<std::string>& lines) {
  CliConsole& radio = bench.Radio();
  radio.CheckLoggedIn();
  CheckSaved(options, lines);
  CheckUnit(radio, options, lines);
  ExpectBoxes(bench, options);
  return Overwritten(bench, entry);
}

Exit RunProgramming(Workbench& bench, const RunOptions& options, Clickable& entry,
                    const std::vector<std::string>& lines) {
  return Told(bench, Programmed(bench, options, entry, lines));
}

}  // namespace quillmark
