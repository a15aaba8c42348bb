#include "settings/programming.h"

#include <optional>

#include "settings/input_rows.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration timeOut = Seconds(3);

// The answer without the row's word and all in front of it.
std::string WithoutWord(const InputRow& row, const std::string& answer) {
  const auto behind = [&answer](std::size_t at, std::ptrdiff_t skip) {
    return Mid(answer, static_cast<std::ptrdiff_t>(at) + skip,
               static_cast<std::ptrdiff_t>(answer.size()))
        .value_or("");
  };
  if (*row.Word == '\0') return answer;
  if (const std::size_t at = FindAnyCase(answer, row.Word)) return behind(at, row.Skip);
  // The radio prints this one with a colon.
  constexpr std::string_view withColon = "ALARM ACTIVE: ";
  if (row.Kind == InputRow::Special::AlarmSense) {
    if (const std::size_t at = FindAnyCase(answer, withColon)) {
      return behind(at, static_cast<std::ptrdiff_t>(withColon.size()));
    }
  }
  return answer;
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
  for (const InputRow& row : InputRows()) {
    (main.*row.Field).OnClick = [this, &row] { InputRow_Click(row); };
  }
  for (const OnOffRow& row : OnOffRows()) {
    (main.*row.Field).OnClick = [this, &row] { OnOffRow_Click(row); };
  }
  main.DeviceType.OnClick = [this] { DeviceType_Click(); };
  main.ShowSync.OnClick = [this] { Talk(&main.ShowSync, [this] { ShowSync_Click(); }); };
  main.AlarmInfo.OnClick = [this] { Talk(&main.AlarmInfo, [this] { AlarmInfo_Click(); }); };
}

bool SettingProgrammer::IsMaster() const { return EqualAnyCase(main.Mode.Text(), "MODE M"); }

bool SettingProgrammer::Allowed(const InputRow& row) const {
  switch (row.Condition) {
    case InputRow::When::Master:
      return IsMaster();
    case InputRow::When::MasterOrExtension:
      return IsMaster() || EqualAnyCase(main.Mode.Text(), "MODE X");
    case InputRow::When::Always:
      break;
  }
  return true;
}

void SettingProgrammer::InputRow_Click(const InputRow& row) {
  if (!Allowed(row)) return;
  const bool from200 = row.PromptFrom200 != nullptr && session.SoftwareRevision.AtLeast(200);
  std::string answer = platform.Dialogs.Input(
      {from200 ? row.PromptFrom200 : row.Prompt, row.Title, (main.*row.Field).Text()});
  if (answer.empty()) return;
  if (row.Kind == InputRow::Special::Xrssi && Find(answer, "-") == 0) answer.insert(0, "-");
  const bool whole = row.Kind == InputRow::Special::NetworkAddress && Contains(answer, "ADDR");
  const std::string command = whole ? answer : row.Command + WithoutWord(row, answer);
  const bool promptAlone = row.Kind == InputRow::Special::AlarmMask;
  Talk(nullptr, [this, &row, command, promptAlone] {
    // A read may have changed the mode while this one waited.
    if (Allowed(row)) Program(command, promptAlone ? ">" : "PROGRAMMED OK");
  });
}

void SettingProgrammer::OnOffRow_Click(const OnOffRow& row) {
  if (IsMaster() != row.AtMaster) return;
  const std::string text = (main.*row.Field).Text();
  const bool on = EqualAnyCase(text, row.On);
  if (!on && !EqualAnyCase(text, row.Off)) return;
  const Answer answer = platform.Dialogs.Message(
      {on ? row.TurnOff : row.TurnOn, row.Title, Icon::None, Buttons::OkCancel});
  if (answer != Answer::Ok) return;
  Talk(nullptr, [this, &row] {
    // A read may have changed the field since.
    const std::string now = (main.*row.Field).Text();
    if (EqualAnyCase(now, row.On)) Program(row.SendOff);
    if (EqualAnyCase(now, row.Off)) Program(row.SendOn);
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
  radio.CommandExchange(command, awaited, timeOut);
  session.AskForRead();
}

void SettingProgrammer::ShowSync_Click() {
  auto value = radio.Ask({.Command = "show sync", .Limit = timeOut});
  if (value) main.ShowSync.Text = std::move(*value);
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
