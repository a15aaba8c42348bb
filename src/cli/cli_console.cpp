#include "cli/cli_console.h"

#include "conversation/reply.h"

namespace quillmark {

namespace {

constexpr Duration longestRead = Seconds(300);

}  // namespace

CliConsole::CliConsole(CliMachine& theMachine, bool quiet)
    : machine(theMachine), console(theMachine.Platform), progress(console.Main(), quiet) {
  console.Shared().History = true;
  console.OnReadCycleDone = [this] { ++reads; };
  machine.OnSignal = [this] { machine.Base.Events.Deliver([this] { console.Form_Unload(); }); };
  machine.ThrowInterrupted = [this] {
    if (overwriting) throw CutShort("Interrupted in the middle of a run.");
  };
  machine.Base.Events.Deliver([this] { console.Start(); });
}

CliConsole::~CliConsole() {
  End();
  machine.OnSignal = nullptr;
  machine.ThrowInterrupted = nullptr;
}

void CliConsole::Act(const std::function<void()>& act) {
  machine.CheckSignals();
  machine.Base.Events.Deliver(act);
  machine.CheckSignals();
}

void CliConsole::Click(Clickable& control) {
  bool done = false;
  Act([&] { done = control.Click(); });
  if (done) return;
  CheckBoxes();
  throw Failure{Exit::NoRadio, "\"" + control.Text() + "\" is not possible with this radio now."};
}

std::string CliConsole::Reasons() const {
  std::string reasons;
  for (const std::string& text : machine.Boxes.Unexpected()) {
    reasons += (reasons.empty() ? "" : " ") + text;
  }
  return reasons;
}

void CliConsole::CheckBoxes() {
  const std::string reasons = Reasons();
  if (reasons.empty()) return;
  machine.Boxes.ForgetUnexpected();
  if (overwriting) throw CutShort(reasons);
  throw Failure{machine.Platform.MSComm1.PortOpen() ? Exit::Different : Exit::NoRadio, reasons};
}

void CliConsole::CheckLink() {
  if (machine.Platform.MSComm1.PortOpen()) return;
  const Notice& failed = Main().ConnectFailed;
  const std::string reasons = failed.Visible() ? failed.Text() : Reasons();
  machine.Boxes.ForgetUnexpected();
  const std::string cause = reasons.empty() ? "The link to the radio was lost." : reasons;
  if (overwriting) throw CutShort(cause);
  throw Failure{Exit::NoRadio, cause};
}

void CliConsole::Connect() {
  Click(Main().tbr_Connect);
  CheckLink();
  if (console.Talk().LastPrompt() != PromptKind::Loader) return CheckBoxes();
  throw Failure{Exit::NoRadio, "The radio is in its loader and has no settings.",
                "Load firmware with the desktop program, quillmark-console."};
}

// The main window's timer would begin the read within the next second.
void CliConsole::Read() {
  const int before = reads;
  console.Shared().AskForRead();
  Act([this] { Main().Timer1.OnTick(); });
  const auto done = [&] { return reads > before || !machine.Platform.MSComm1.PortOpen(); };
  const bool inTime = machine.WaitFor(done, longestRead);
  CheckLink();
  CheckBoxes();
  if (inTime && Main().At(SettingId::SerialNumber).CameLast) return;
  const std::string cause = "The radio does not answer to what it is asked.";
  if (overwriting) throw CutShort(cause);
  throw Failure{Exit::NoRadio, cause};
}

void CliConsole::ConnectAndRead() {
  Connect();
  Read();
}

std::optional<std::string> CliConsole::Ask(const Setting& setting) {
  std::optional<std::string> value;
  Act([&] {
    const LineTurns::Turn turn(console.Talk().Turns);
    value = console.Talk().Ask({.Command = setting.Word, .Opening = setting.Reply});
  });
  CheckLink();
  return value && IsRefusal(*value) ? std::nullopt : value;
}

RadioTexts CliConsole::Texts(const std::vector<SettingId>& wanted) {
  RadioTexts texts = console.LastRead().Texts;
  for (const SettingId id : wanted) {
    const Setting& setting = SettingOf(id);
    const bool has = setting.Revisions.HoldsBelowIfUnknown(console.Shared().SoftwareRevision);
    if (!has || texts.contains(id)) continue;
    if (const auto value = Ask(setting)) texts[id] = *value;
  }
  return texts;
}

void CliConsole::CheckLoggedIn() {
  if (!Main().NotLoggedIn.Visible()) return;
  throw Failure{Exit::Denied, "Not logged in: the radio refuses changes."};
}

Failure CliConsole::CutShort(const std::string& cause) const {
  const auto& copy = const_cast<Console&>(console).History().BeforeLastRun();
  return {Exit::Incomplete, cause + " The radio may hold only a part.",
          copy.empty() ? "" : "What it held before is kept in " + copy.string() + "."};
}

void CliConsole::End(bool logOut) {
  if (ended) return;
  ended = true;
  machine.Boxes.Ending();
  console.Shared().LogoutOnQuit = logOut;
  if (!machine.Base.Events.Quitting()) {
    machine.Base.Events.Deliver([this] { console.Form_Unload(); });
  }
}

}  // namespace quillmark
