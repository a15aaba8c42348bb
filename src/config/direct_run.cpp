#include "config/direct_run.h"

#include "prefs/utilities.h"

namespace quillmark {

namespace {

constexpr std::size_t longestReply = 64 * 1024;  // bytes
// The watchdog ends a wait long before that.
constexpr Duration longestWait = Seconds(3600);

}  // namespace

DirectRun::DirectRun(Platform& machine, frmOrvalent& window, Connection& link)
    : platform(machine), main(window), connection(link) {}

void DirectRun::Begin() {
  main.DirectPortMode = true;
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

void DirectRun::Take() {
  Reply += platform.MSComm1.Input();
  if (Reply.size() > longestReply) Reply.erase(0, Reply.size() - longestReply);
}

void DirectRun::CheckLink() const {
  if (main.LinkLetGo || main.PortTimedOut || !main.DirectPortMode || !platform.MSComm1.PortOpen())
    throw RunFailed();
}

void DirectRun::Await(const std::function<bool()>& done) {
  connection.StartPortTimeout();
  // Also where the reply is there already: the window must not stand still for the whole run.
  platform.Events.Pump();
  WaitUntil(platform.Events, longestWait, [&] {
    CheckLink();
    Take();
    return done();
  });
  connection.StopPortTimeout();
}

bool DirectRun::MayStart() {
  const std::string obstacle = Obstacle ? Obstacle() : "";
  if (obstacle.empty()) return true;
  platform.Dialogs.Message({obstacle, "User Help"});
  return false;
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

QuickTask::QuickTask(DirectRun& itsRun) : run(itsRun), controls(itsRun.main) {
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
