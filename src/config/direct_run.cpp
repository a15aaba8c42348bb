#include "config/direct_run.h"

#include <utility>

#include "platform/utilities.h"

namespace quillmark {

namespace {

// The watchdog ends a wait long before that.
constexpr Duration longestWait = Seconds(3600);
// Of a serial number with its word, in characters.
constexpr std::size_t longestNumber = 20;

}  // namespace

DirectRun::DirectRun(Platform& machine, frmOrvalent& window, Connection& link,
                     Conversation& conversation)
    : platform(machine), main(window), connection(link), radio(conversation) {}

void DirectRun::Begin() {
  main.HoldPort();
  main.PortTimedOut = false;
}

void DirectRun::ShowTitle(std::string_view word) {
  std::string text;
  for (int line = 0; line < 5; ++line) text += "\r\n";
  main.txtTerm.Text = text.append(word);
}

void DirectRun::Dot() { main.txtTerm.Text = main.txtTerm.Text() + "."; }

void DirectRun::ShowProgress(int done, int all) {
  main.barRun.Max = all;
  main.barRun.Value = done;
  main.barRun.Visible = true;
}

void DirectRun::Sleep(int ms) { WaitMilliseconds(platform.Events, ms); }

void DirectRun::DropInput() {
  radio.Take();
  radio.Clear();
}

void DirectRun::CheckLink() const {
  if (Broken()) throw RunFailed();
}

bool DirectRun::Broken() const {
  return main.LinkLetGo || main.PortTimedOut || !main.DirectPortMode ||
         !platform.MSComm1.PortOpen();
}

DirectRun::Watch::Watch(DirectRun& itsRun) : run(itsRun) {
  run.connection.StartPortTimeout();
  run.radio.GivenUp = [&watched = run] { return watched.Broken(); };
  // The radio has answered: the watchdog starts afresh.
  run.radio.AskingAgain = [&link = run.connection] {
    link.StopPortTimeout();
    link.StartPortTimeout();
  };
}

DirectRun::Watch::~Watch() {
  run.radio.GivenUp = nullptr;
  run.radio.AskingAgain = nullptr;
  run.connection.StopPortTimeout();
}

void DirectRun::Await(const std::function<bool()>& done) {
  const Watch watch(*this);
  platform.Events.Pump();
  if (!radio.AwaitText(longestWait, done)) throw RunFailed();
}

std::optional<std::string> DirectRun::Ask(Conversation::Question question) {
  const Watch watch(*this);
  question.Limit = longestWait;
  auto value = radio.Ask(question);
  CheckLink();
  return value;
}

void DirectRun::WhenFree(const Control& entry, std::function<void()> act) {
  if (!MayStart()) return;
  radio.Turns.WhenFree(entry, [this, act = std::move(act)] {
    if (MayStart()) act();
  });
}

bool DirectRun::ConfirmClearing(const std::string& question, const std::string& title) {
  return platform.Dialogs.Message({.Text = question,
                                   .Title = title,
                                   .Choice = Buttons::YesNo,
                                   .Details = ClearingNote(),
                                   .Irreversible = true}) == Answer::Yes;
}

// A run that has begun has cleared the radio already.
std::string DirectRun::ClearingNote() const {
  if (main.DirectPortMode) return {};
  const SettingRow& row = main.At(SettingId::SerialNumber);
  const std::string& number = row.Text();
  // One that is stale may be that of the radio before.
  const bool read = !row.Stale() && number.size() <= longestNumber && number.starts_with("SN ");
  return "This clears all settings of " + (read ? number : "the radio") + " first.";
}

bool DirectRun::MayStart() {
  const std::string obstacle = Obstacle ? Obstacle() : "";
  if (obstacle.empty()) return true;
  platform.Dialogs.Message({obstacle, "User Help"});
  return false;
}

void DirectRun::KeepBefore(const std::string& what) {
  if (!BeforeOverwrite) return;
  BeforeOverwrite(what);
  // A read may have switched some on.
  if (task != nullptr) task->controls.HoldAgain();
}

void DirectRun::ReadRadioAgain() {
  if (main.LinkLetGo) return;
  if (task == nullptr || platform.MSComm1.PortOpen()) {
    connection.ButtonRefresh_Click();
    return;
  }
  if (reconnectTried) return;
  reconnectTried = true;
  connection.ButtonRefresh_Click();
  task->controls.HoldAgain();
}

QuickTask::QuickTask(DirectRun& itsRun)
    : run(itsRun), turn(itsRun.radio.Turns), controls(itsRun.main) {
  run.task = this;
  run.reconnectTried = false;
  run.main.LinkLetGo = false;
  controls.Hold(run.main.mnuSendText);
  controls.Hold(run.main.tbr_TransmitTextFile);
}

QuickTask::~QuickTask() {
  run.HideProgress();
  // The status panel has told what was done; nobody else takes it back.
  run.main.Timer2.Enabled = true;
  if (!run.platform.MSComm1.PortOpen()) run.ShowStatus("Status: ");
  run.task = nullptr;
  run.main.LinkLetGo = false;
}

}  // namespace quillmark
