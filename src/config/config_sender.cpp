#include "config/config_sender.h"

#include "catalogue/bounds.h"
#include "catalogue/settings.h"
#include "config/config_lines.h"
#include "config/program_plan.h"
#include "platform/utilities.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr const char* unitPrompt =
    "Select the UNIT number for this radio.\r\n\r\nValid numbers are from 10000 - 65000.\r\n\r\n"
    "The factory default is a 4 digit number. If you wish to change it, the entry MUST be a five "
    "digit number in the range above.\r\n\r\n(Click 'CANCEL' button to use the default entry.)";

constexpr const char* notSaved =
    "The file does not appear to be a saved configuration file\r\nthat was created with this "
    "Quillmark Configuration utility.\r\n\r\nDo you want to send it to the radio anyway ?";

std::string WithoutWord(std::string text, std::string_view word) {
  while (const std::size_t at = FindAnyCase(text, word)) text.erase(at - 1, word.size());
  return std::string(Trim(text));
}

bool IsUnitNumber(const std::string& text) {
  constexpr double belowFirst = 9999;
  constexpr double aboveLast = 65001;
  const auto number = NumericValue(text);
  return number && *number > belowFirst && *number < aboveLast;
}

// What is wrong with an answer to the question for it, if anything.
std::string UnitObjection(std::string_view answer) {
  const std::string number = WithoutWord(std::string(answer), "UNIT");
  if (number.empty()) return {};
  const Verdict verdict = Judge(SettingOf(SettingId::UnitAddr), number, {}, {});
  if (!verdict.Fine() || IsUnitNumber(number)) return verdict.Sentence();
  return "UNIT " + number + ": only Cancel leaves a number of four digits";
}

}  // namespace

ConfigSender::ConfigSender(Platform& machine, const Session& shared, frmOrvalent& window,
                           Connection& link, Conversation& conversation, DirectRun& itsRun)
    : platform(machine),
      session(shared),
      main(window),
      connection(link),
      radio(conversation),
      run(itsRun) {}

// The user's own set wins over the one that ships with the program.
std::filesystem::path ConfigSender::DefaultSet() const {
  constexpr const char* name = "NewRadio.txt";
  const std::filesystem::path own = platform.Files.Data() / name;
  return FileExists(own) ? own : platform.Files.Shipped() / name;
}

void ConfigSender::LoadConfigLines(const std::filesystem::path& path, bool defaults, bool& result) {
  const std::filesystem::path source = defaults ? DefaultSet() : path;
  result = false;
  ConfigLines.clear();
  if (!FileExists(source)) return;
  ConfigText text = ReadConfigText(source, MostConfigLines);
  if (!text.Refusal.empty()) {
    ShowRefusal(platform.Dialogs, text.Refusal);
    return;
  }
  ConfigLines = std::move(text.Lines);
  if (!defaults && !IsSavedConfig(ConfigLines)) {
    if (!run.ConfirmClearing(notSaved, "File Error")) return;
  }
  result = true;
}

bool ConfigSender::ConfirmPlan() {
  if (!session.PlanFirst) return true;
  const std::vector<std::string> defaults = ReadConfigText(DefaultSet(), MostConfigLines).Lines;
  const ProgramPlan plan = PlanOf(defaults, ConfigLines, main, session.SoftwareRevision);
  return platform.Dialogs.Message(QuestionOf(plan, run.ClearingNote())) == Answer::Yes;
}

void ConfigSender::SendConfigLines(bool checkUnit) {
  main.PortTimedOut = false;
  try {
    SendLines(checkUnit);
    return;
  } catch (const SerialError&) {
    // As a radio that gave no prompt.
  } catch (const RunFailed&) {
    // The watchdog, or the loss of the port, has told the user.
  }
  connection.StopPortTimeout();
  main.ReleasePort();
  run.ReadRadioAgain();
}

void ConfigSender::SendLines(bool checkUnit) {
  LeaveSetupMode();
  if (ConfigLines.empty()) throw RunFailed();
  radio.Settle();
  const auto all = static_cast<int>(ConfigLines.size());
  for (int done = 0; done < all; ++done) {
    run.ShowProgress(done, all);
    std::string& line = ConfigLines[static_cast<std::size_t>(done)];
    if (line.empty()) {
      Pause();
      continue;
    }
    if (IsComment(line)) continue;
    if (checkUnit && Contains(line, "UNIT")) CheckUnit(line);
    run.ShowStatus(line);
    radio.Prime();
    run.Send(line);
    run.Dot();
    AwaitLine(line);
  }
  run.ShowProgress(all, all);
}

// A second, during which the window stays alive.
void ConfigSender::Pause() {
  for (int part = 0; part < 10; ++part) {
    run.Sleep(100);
    platform.Events.Pump();
    run.CheckLink();
  }
}

// What the radio says to a line is not looked at, only that its prompt comes back. The setting of
// an alarm sense line has another word, so that is sent behind it.
void ConfigSender::AwaitLine(const std::string& line) {
  AwaitPrompt();
  const auto sense = AlarmSenseValue(line);
  if (!sense) return;
  radio.Prime();
  run.Send("asense " + *sense);
  AwaitPrompt();
}

void ConfigSender::AwaitPrompt() {
  connection.StartPortTimeout();
  while (!radio.AtPrompt() || radio.PromptsDue() > 0) {
    radio.Take();
    run.Sleep(100);
    platform.Events.Pump();
    run.CheckLink();
  }
  connection.StopPortTimeout();
  run.Sleep(20);
}

void ConfigSender::LeaveSetupMode() {
  if (radio.LastPrompt() != PromptKind::Setup) return;
  radio.Settle();
  radio.Prime();
  run.Send("QUIT");
  AwaitPrompt();
}

// Keeps a radio from receiving the number of the one that the file was taken from.
void ConfigSender::CheckUnit(std::string& line) {
  std::string offered = line;
  for (;;) {
    const std::string answer = platform.Dialogs.Input(
        {.Prompt = unitPrompt,
         .Title = "Check UNIT number.",
         .Default = offered,
         .Hint = HintOf(SettingOf(SettingId::UnitAddr), session.SoftwareRevision),
         .Check = UnitObjection});
    if (answer.empty()) return;
    const std::string number = WithoutWord(answer, "UNIT");
    if (IsUnitNumber(number)) {
      line = "UNIT " + number;
      platform.Dialogs.Message({"New Unit: " + line});
      return;
    }
    offered = number;
  }
}

void ConfigSender::ProgramFromFile(const std::filesystem::path& path) {
  bool loaded = false;
  main.HoldPort();
  main.Sent.Forget();
  const SentSettings::Listening listening(main.Sent);
  LoadConfigLines({}, true, loaded);
  main.Sent.Plan(ConfigLines);
  main.Sent.Plan(ReadConfigText(path, MostConfigLines).Lines);
  SendConfigLines(false);
  // Without a port there is nobody to send to, or to ask a unit number for.
  if (main.LinkLetGo || !platform.MSComm1.PortOpen()) {
    main.ReleasePort();
    return;
  }
  // The first stage may have ended in its failure path.
  main.HoldPort();
  LoadConfigLines(path, false, loaded);
  SendConfigLines(true);
  main.ReleasePort();
  run.ReadRadioAgain();
}

}  // namespace quillmark
