#include "settings/programming.h"

#include <optional>

#include "radio/command_exchange.h"
#include "radio/reply.h"
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

// A port that is lost meanwhile has its own notice.
template <class Handler>
std::function<void()> WithoutLinkErrors(Handler handler) {
  return [handler] {
    try {
      handler();
    } catch (const SerialError&) {
      return;
    }
  };
}

}  // namespace

SettingProgrammer::SettingProgrammer(Platform& machine, Session& shared, frmOrvalent& window)
    : platform(machine), session(shared), main(window) {}

void SettingProgrammer::Wire() {
  for (const InputRow& row : InputRows()) {
    (main.*row.Field).OnClick = WithoutLinkErrors([this, &row] { InputRow_Click(row); });
  }
  for (const OnOffRow& row : OnOffRows()) {
    (main.*row.Field).OnClick = WithoutLinkErrors([this, &row] { OnOffRow_Click(row); });
  }
  main.DeviceType.OnClick = WithoutLinkErrors([this] { DeviceType_Click(); });
  main.ShowSync.OnClick = WithoutLinkErrors([this] { ShowSync_Click(); });
  main.AlarmInfo.OnClick = WithoutLinkErrors([this] { AlarmInfo_Click(); });
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
  if (row.Kind == InputRow::Special::NetworkAddress && Contains(answer, "ADDR")) {
    Program(answer);
    return;
  }
  const bool promptAlone = row.Kind == InputRow::Special::AlarmMask;
  Program(row.Command + WithoutWord(row, answer), promptAlone ? ">" : "PROGRAMMED OK");
}

void SettingProgrammer::OnOffRow_Click(const OnOffRow& row) {
  if (IsMaster() != row.AtMaster) return;
  const std::string text = (main.*row.Field).Text();
  const bool on = EqualAnyCase(text, row.On);
  if (!on && !EqualAnyCase(text, row.Off)) return;
  const Answer answer = platform.Dialogs.Message(
      {on ? row.TurnOff : row.TurnOn, row.Title, Icon::None, Buttons::OkCancel});
  if (answer != Answer::Ok) return;
  // A read may have changed the field while the box was up.
  const std::string now = (main.*row.Field).Text();
  if (EqualAnyCase(now, row.On)) Program(row.SendOff);
  if (EqualAnyCase(now, row.Off)) Program(row.SendOn);
}

void SettingProgrammer::DeviceType_Click() {
  const Answer answer =
      platform.Dialogs.Message({"Program Device Type to DCE?\r\rYES for DCE      NO for CTS KEY",
                                "Program Device Type", Icon::None, Buttons::YesNoCancel});
  if (answer == Answer::Cancel) return;
  Program(answer == Answer::Yes ? "device DCE" : "device CTS KEY");
}

void SettingProgrammer::Program(const std::string& command, std::string_view awaited) {
  if (!platform.MSComm1.PortOpen()) return;
  CommandExchange(session, platform.MSComm1, platform.Events, command, awaited, timeOut);
  session.RefreshRequested = true;
}

void SettingProgrammer::ShowSync_Click() {
  if (!platform.MSComm1.PortOpen()) return;
  constexpr std::string_view word = "show sync";
  CommandExchange(session, platform.MSComm1, platform.Events, std::string(word), timeOut,
                  [&] { return HasReply(session.RxBuffer, word, session.InSetupMode); });
  if (auto value = CutReply(session.RxBuffer, word, session.InSetupMode)) {
    main.ShowSync.Text = std::move(*value);
  }
}

// The report shows in the terminal, as everything that the radio says.
void SettingProgrammer::AlarmInfo_Click() {
  if (!platform.MSComm1.PortOpen()) return;
  CommandExchange(session, platform.MSComm1, platform.Events, "stat", timeOut, [this] {
    return HasReply(session.RxBuffer, "stat", session.InSetupMode) ||
           Contains(session.RxBuffer, "MORE>");
  });
  constexpr int furtherPages = 2;
  for (int page = 0; page < furtherPages && Contains(session.RxBuffer, "MORE>"); ++page) {
    session.RxBuffer = " ";
    platform.MSComm1.Output("\r");
    WaitUntil(platform.Events, timeOut, [this] {
      const std::size_t lineEnd = Find(session.RxBuffer, "\r");
      const std::size_t lineFeed = lineEnd == 0 ? 0 : Find(session.RxBuffer, "\n", lineEnd);
      return lineFeed != 0 && Find(session.RxBuffer, ">", lineFeed) != 0;
    });
  }
}

}  // namespace quillmark
