#include "config/new_radio/quick_config.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <system_error>

#include "catalogue/bounds.h"
#include "catalogue/settings.h"
#include "settings/frmSimpleXMAP.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

// In a list of pauses: a dot in the terminal. Any other number is a pause in ms.
constexpr int dot = 0;
constexpr int end = -1;

enum class Next { AskForRepeater, Nothing, AskXaddr, GuideSubRemote };

}  // namespace

struct Role {
  const char* Name;
  const char* Title;
  const char* Question;
  char Mode;
  bool StatusFirst;  // the status panel before the terminal
  bool DotFirst;     // the dot before the pause, up to the power
  std::array<int, 4> AfterBaud;
  Next Then;
};

namespace {

// The question for a repeater's address offers every radio what the newer ones take.
const Revision& Newer() {
  static const Revision newer = RevisionOf("2.0.0");
  return newer;
}

// What is wrong with an answer to it, if anything. The radio is a repeater by then.
std::string XaddrObjection(std::string_view answer) {
  if (answer.empty()) return {};
  return Judge(SettingOf(SettingId::XADDR), answer, Newer(), "MODE X").Sentence();
}

// clang-format off
constexpr Role master{"Master", "MASTER", "Program radio as MASTER...", 'M', false, false,
                      {100, dot, end}, Next::AskForRepeater};
constexpr Role remote{"Remote", "REMOTE", "Program radio as REMOTE...", 'R', false, false,
                      {dot, 100, 500, end}, Next::Nothing};
constexpr Role repeater{"Repeater", "REPEATER", "Program radio as REPEATER...", 'X', true, false,
                        {500, dot, end}, Next::AskXaddr};
constexpr Role subRemote{"Sub-Remote", "REPEATER",
                         "Program radio as a REMOTE connecting through a REPEATER...", 'R', false,
                         true, {dot, 100, end}, Next::GuideSubRemote};
// clang-format on

// Without an exponent, whatever the user's country writes for a decimal point.
std::string PlainDecimal(double value) {
  std::array<char, 400> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return end.ec == std::errc() && std::isfinite(value) ? std::string(text.data(), end.ptr) : "0";
}

}  // namespace

QuickConfig::QuickConfig(Platform& machine, frmOrvalent& window, Conversation& conversation,
                         DirectRun& itsRun, ConfigSender& itsSender)
    : platform(machine), main(window), radio(conversation), run(itsRun), sender(itsSender) {}

void QuickConfig::Wire() {
  main.cmdMaster.OnClick = [this] { Role_Click(master, main.cmdMaster); };
  main.cmdRemote.OnClick = [this] { Role_Click(remote, main.cmdRemote); };
  main.cmdRepeater.OnClick = [this] { Role_Click(repeater, main.cmdRepeater); };
  main.cmdSubRemote.OnClick = [this] { Role_Click(subRemote, main.cmdSubRemote); };
  main.cmdRptHelp1.OnClick = [this] { cmdRptHelp_Click(); };
  main.cmdRptHelp2.OnClick = [this] { cmdRptHelp_Click(); };
}

void QuickConfig::cmdRptHelp_Click() {
  Form_QueryUnload();
  picture = std::make_shared<frmSimpleRptrSetup>();
  platform.Windows.Show(picture);
}

void QuickConfig::Form_QueryUnload() {
  if (picture) picture->Unload();
}

bool QuickConfig::Confirmed(const Role& role, const Entries& entries) const {
  const std::string text = std::string(role.Question) + "\r\n\r\nBAUD: " + entries.Baud +
                           "\r\n\r\nADDR: " + entries.Address +
                           "\r\n\r\nPWR: " + std::to_string(entries.Power) + " dBm";
  return run.ConfirmClearing(text, role.Title);
}

void QuickConfig::Role_Click(const Role& role, const Button& button) {
  const Entries entries{main.cmbBaud.Text(), main.txtNewADDR.Text(), main.sldPwr.Value()};
  if (!run.MayStart() || !Confirmed(role, entries)) return;
  run.WhenFree(button, [this, &role, entries] { ProgramRole(role, entries); });
}

void QuickConfig::ProgramRole(const Role& role, const Entries& entries) {
  const QuickTask task(run);
  run.KeepBefore(std::string("role ") + role.Name);
  const std::vector<std::string> commands = RoleCommands(role, entries);
  main.Sent.Forget();
  const SentSettings::Listening listening(main.Sent);
  try {
    ClearUnit(role, commands);
    if (!main.LinkLetGo) SendRole(role, commands);
  } catch (const SerialError&) {
    // The loss of the port has told the user.
  }
  main.ReleasePort();
  run.ReadRadioAgain();
}

std::vector<std::string> QuickConfig::RoleCommands(const Role& role, const Entries& entries) {
  return {std::string("MODE ") + role.Mode, "ADDR " + PlainDecimal(LeadingNumber(entries.Address)),
          "PWR " + std::to_string(entries.Power), "BAUD " + entries.Baud};
}

void QuickConfig::ClearUnit(const Role& role, const std::vector<std::string>& commands) {
  constexpr const char* status = "Clearing Unit";
  if (role.StatusFirst) run.ShowStatus(status);
  run.ShowTitle("PROGRAMMING.");
  if (!role.StatusFirst) run.ShowStatus(status);
  main.HoldPort();
  bool loaded = false;
  sender.LoadConfigLines({}, true, loaded);
  main.Sent.Plan(sender.ConfigLines);
  main.Sent.Plan(commands);
  sender.SendConfigLines(false);
  // Its failure path gives the line away, but the role still follows.
  main.HoldPort();
}

void QuickConfig::SendRole(const Role& role, const std::vector<std::string>& commands) {
  const auto send = [&](const std::string& command, int pause) {
    run.Send(command);
    if (role.DotFirst) run.Dot();
    run.Sleep(pause);
    if (!role.DotFirst) run.Dot();
  };
  send(commands[0], 250);
  send(commands[1], 100);
  send(commands[2], 100);
  run.Send(commands[3]);
  for (const int pause : role.AfterBaud) {
    if (pause == end) break;
    if (pause == dot) {
      run.Dot();
    } else {
      run.Sleep(pause);
    }
  }
  AskFurther(role);
}

void QuickConfig::AskFurther(const Role& role) {
  switch (role.Then) {
    case Next::AskForRepeater:
      AskForRepeater();
      break;
    case Next::AskXaddr:
      run.DropInput();
      AskXaddr();
      break;
    case Next::GuideSubRemote:
      platform.Windows.ShowModal(std::make_shared<frmSimpleXMAP>(platform, main, radio), main);
      break;
    case Next::Nothing:
      run.DropInput();
      break;
  }
}

void QuickConfig::AskForRepeater() {
  const Answer answer = platform.Dialogs.Message({"Will the MASTER have a REPEATER in the system ?",
                                                  "Repeater ?", Icon::None, Buttons::YesNo});
  if (answer == Answer::Yes) run.Send("SAF ON");
  run.Dot();
  run.Sleep(500);
  run.DropInput();
}

void QuickConfig::AskXaddr() {
  for (;;) {
    const std::string answer = platform.Dialogs.Input(
        {.Prompt = "Enter this repeater's XADDR. (This is the number used by the remotes that are "
                   "to associate with this repeater.)",
         .Title = "Enter XADDR",
         .Default = "1",
         .Hint = HintOf(SettingOf(SettingId::XADDR), Newer()),
         .Check = XaddrObjection});
    if (answer.empty()) {
      platform.Dialogs.Message({"REPEATER radio programmed WITH default XADDR of 0"});
      return;
    }
    const auto number = NumericValue(answer);
    if (!number || *number < 0 || *number >= 32) {
      platform.Dialogs.Message({"XADDR is a number between 0 and 31.", "Invalid XADDR"});
      continue;
    }
    if (*number == 0) {
      const Answer sure = platform.Dialogs.Message(
          {"XADDR 0 is the default setting for a Master radio.\r\n\r\nAre you sure you want to use "
           "an XADDR of 0 ?",
           "XADDR", Icon::None, Buttons::YesNo});
      if (sure != Answer::Yes) continue;
    }
    run.Send("XADDR " + answer);
    run.Sleep(250);
    run.DropInput();
    return;
  }
}

}  // namespace quillmark
