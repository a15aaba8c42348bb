#include "settings/programming.h"

#include <optional>
#include <utility>

#include "catalogue/bounds.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration timeOut = Seconds(3);

constexpr std::string_view addressWord = "ADDR";
constexpr char minus = '-';

std::string Behind(const std::string& answer, std::size_t at, std::size_t skip) {
  return Mid(answer, static_cast<std::ptrdiff_t>(at + skip),
             static_cast<std::ptrdiff_t>(answer.size()))
      .value_or("");
}

// The answer without the setting's word and all in front of it.
std::string WithoutWord(const SettingInput& input, const std::string& answer) {
  const std::string_view word = input.Strips;
  if (word.empty()) return answer;
  if (const std::size_t at = FindAnyCase(answer, word)) {
    return Behind(answer, at, word.size() - (input.KeepsBlank ? 1 : 0));
  }
  if (input.Way == InputWay::Colon) {
    const std::string withColon = std::string(Trim(word)) + ": ";
    if (const std::size_t at = FindAnyCase(answer, withColon)) {
      return Behind(answer, at, withColon.size());
    }
  }
  return answer;
}

std::string CommandOf(const Setting& setting, std::string answer) {
  const SettingInput& input = *setting.Input;
  if (input.Way == InputWay::WholeCommand && Contains(answer, addressWord)) return answer;
  if (input.Way == InputWay::Negative && answer.find(minus) == std::string::npos) {
    answer.insert(0, 1, minus);
  }
  return std::string(setting.Word) + " " + WithoutWord(input, answer);
}

std::string_view AwaitedFor(const Setting& setting) {
  const bool promptAlone = setting.Input && setting.Input->Way == InputWay::PromptAlone;
  return promptAlone ? ">" : "PROGRAMMED OK";
}

// A page ends in a prompt somewhere behind its first line end.
bool PageIsWhole(std::string_view received) {
  const std::size_t lineEnd = Find(received, "\r");
  const std::size_t lineFeed = lineEnd == 0 ? 0 : Find(received, "\n", lineEnd);
  return lineFeed != 0 && Find(received, ">", lineFeed) != 0;
}

}  // namespace

SettingProgrammer::SettingProgrammer(Platform& machine, Session& shared, frmOrvalent& window,
                                     Conversation& conversation)
    : platform(machine), session(shared), main(window), radio(conversation) {}

void SettingProgrammer::Wire() {
  for (SettingRow& row : main.Rows) {
    if (row.What.Input) row.OnClick = [this, &row] { InputRow_Click(row); };
    if (row.What.Switch) row.OnClick = [this, &row] { OnOffRow_Click(row); };
  }
  SettingRow& sync = main.At(SettingId::ShowSync);
  SettingRow& alarms = main.At(SettingId::AlarmInfo);
  main.At(SettingId::DeviceType).OnClick = [this] { DeviceType_Click(); };
  sync.OnClick = [this, &sync] { Talk(&sync, [this] { ShowSync_Click(); }); };
  alarms.OnClick = [this, &alarms] { Talk(&alarms, [this] { AlarmInfo_Click(); }); };
}

void SettingProgrammer::InputRow_Click(const SettingRow& row) {
  const SettingInput& input = *row.What.Input;
  if (!IsOneOf(input.At, main.ModeText())) return;
  const bool from200 = input.PromptFrom200 != nullptr && session.SoftwareRevision.AtLeast(200);
  const std::string answer = platform.Dialogs.Input(
      {.Prompt = from200 ? input.PromptFrom200 : input.Prompt,
       .Title = input.Title,
       .Default = row.Text(),
       .Hint = HintOf(row.What, session.SoftwareRevision),
       .Check = [this, &row](std::string_view typed) { return Objection(row, typed); }});
  if (answer.empty()) return;
  Talk(nullptr, [this, &row, command = CommandOf(row.What, answer)] {
    // A read may have changed the mode while this one waited.
    if (!IsOneOf(row.What.Input->At, main.ModeText())) return;
    Program(command, AwaitedFor(row.What));
  });
}

// Judges the command that the answer becomes. A read may change mode and revision meanwhile.
std::string SettingProgrammer::Objection(const SettingRow& row, std::string_view answer) const {
  if (answer.empty()) return {};
  return JudgeCommand(row.What, CommandOf(row.What, std::string(answer)), session.SoftwareRevision,
                      main.ModeText())
      .Sentence();
}

void SettingProgrammer::OnOffRow_Click(const SettingRow& row) {
  const SettingSwitch& turned = *row.What.Switch;
  const std::string word = row.What.Word;
  if (!IsOneOf(turned.At, main.ModeText())) return;
  const bool on = EqualAnyCase(row.Text(), word + " ON");
  if (!on && !EqualAnyCase(row.Text(), word + " OFF")) return;
  const std::string question = std::string("Turn ") + turned.Turns + (on ? " off?" : " on?");
  const Answer answer = platform.Dialogs.Message(
      {.Text = question,
       .Title = turned.Title,
       .Choice = Buttons::OkCancel,
       .Details = std::string("Factory value: ") + row.What.Value.Factory + "."});
  if (answer != Answer::Ok) return;
  Talk(nullptr, [this, &row, word] {
    // A read may have changed the field since.
    const std::string now = row.Text();
    if (EqualAnyCase(now, word + " ON")) Program(word + " OFF");
    if (EqualAnyCase(now, word + " OFF")) Program(word + " ON");
  });
}

void SettingProgrammer::DeviceType_Click() {
  const Answer answer =
      platform.Dialogs.Message({"Program Device Type to DCE?\r\rYES for DCE      NO for CTS KEY",
                                "Program Device Type", Icon::None, Buttons::YesNoCancel});
  if (answer == Answer::Cancel) return;
  const char* const command = answer == Answer::Yes ? "device DCE" : "device CTS KEY";
  Talk(nullptr, [this, command] { Program(command); });
}

void SettingProgrammer::Talk(const Control* entry, std::function<void()> act) {
  if (!radio.Open()) return;
  const auto talk = [this, act = std::move(act)] {
    if (!radio.Open()) return;
    const LineTurns::Turn turn(radio.Turns);
    try {
      act();
    } catch (const SerialError&) {
      // A port that is lost meanwhile has its own notice.
      return;
    }
  };
  if (entry != nullptr) {
    radio.Turns.WhenFree(*entry, talk);
  } else {
    radio.Turns.WhenFree(talk);
  }
}

void SettingProgrammer::Program(const std::string& command, std::string_view awaited) {
  main.Sent.Forget();
  const SentSettings::Listening listening(main.Sent);
  radio.CommandExchange(command, awaited, timeOut);
  session.AskForRead();
}

std::string SettingProgrammer::CommandFor(const Setting& setting, const std::string& value) {
  return setting.Input ? CommandOf(setting, value) : std::string(setting.Word) + " " + value;
}

void SettingProgrammer::Send(std::vector<Change> changes) {
  Talk(nullptr, [this, changes = std::move(changes)] { SendAll(changes); });
}

void SettingProgrammer::SendAll(const std::vector<Change>& changes) {
  main.Sent.Forget();
  const SentSettings::Listening listening(main.Sent);
  std::vector<std::string> lines;
  lines.reserve(changes.size());
  for (const Change& change : changes) lines.push_back(change.Command);
  main.Sent.Plan(lines);
  for (const Change& change : changes) {
    radio.CommandExchange(change.Command, AwaitedFor(*change.What), timeOut);
  }
  session.AskForRead();
}

void SettingProgrammer::ShowSync_Click() {
  SettingRow& row = main.At(SettingId::ShowSync);
  auto value = radio.Ask({.Command = row.What.Word, .Limit = timeOut});
  if (value) row.ShowRead(*value);
}

// The report shows in the terminal, as everything that the radio says.
void SettingProgrammer::AlarmInfo_Click() {
  radio.CommandExchange("stat", "stat", timeOut);
  constexpr int furtherPages = 2;
  for (int page = 0; page < furtherPages && Contains(radio.Received(), "MORE>"); ++page) {
    radio.Prime();
    radio.Say("");
    radio.AwaitText(timeOut, [this] { return PageIsWhole(radio.Received()); });
  }
}

}  // namespace quillmark
