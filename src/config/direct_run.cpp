#include "config/direct_run.h"

#include <initializer_list>

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
  // Whoever closes the link takes DirectPortMode away.
  if (main.PortTimedOut || !main.DirectPortMode || !platform.MSComm1.PortOpen()) throw RunFailed();
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

void DirectRun::ReadRadioAgain() {
  if (!platform.MSComm1.PortOpen()) {
    if (reconnectTried) return;
    reconnectTried = true;
  }
  connection.ButtonRefresh_Click();
}

QuickTask::QuickTask(DirectRun& itsRun) : run(itsRun) {
  run.reconnectTried = false;
  frmOrvalent& main = run.main;
  for (Control* control : std::initializer_list<Control*>{
           &main.frQuick, &main.InfoFrame, &main.ButtonAdv, &main.ButtonZoneData, &main.ButtonRSSI,
           &main.mnuSpecial, &main.mnuSendText, &main.tbr_TransmitTextFile, &main.tbr_Login,
           &main.tbr_Logout}) {
    Hold(*control);
  }
}

void QuickTask::Hold(Control& control) {
  held.push_back({&control, control.Enabled()});
  control.Enabled = false;
}

QuickTask::~QuickTask() {
  const bool linkStands = run.platform.MSComm1.PortOpen();
  for (const Held& each : held) {
    // The link's own controls were switched off with it.
    const bool ofLink = each.What == &run.main.mnuSendText ||
                        each.What == &run.main.tbr_TransmitTextFile ||
                        each.What == &run.main.tbr_Login || each.What == &run.main.tbr_Logout;
    if (!ofLink || linkStands) each.What->Enabled = each.WasEnabled || each.What->Enabled();
  }
  run.HideProgress();
}

}  // namespace quillmark
