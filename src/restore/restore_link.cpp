#include "restore/restore_link.h"

#include <algorithm>

#include "conversation/wake.h"
#include "link/comm_events.h"
#include "link/serial_failure.h"
#include "link/settings_listener.h"
#include "platform/utilities.h"
#include "text/at_end.h"

namespace quillmark {

namespace {

constexpr int promptTime = 50;  // ms, from a carriage return to the look for its prompt
constexpr int retryPause = 100;
constexpr Duration firstLook = Milliseconds(50);
constexpr Duration lastLook = Milliseconds(400);
// For a radio that has begun to answer.
constexpr Duration longestAnswer = Seconds(1);
constexpr Duration longestBacklog = Seconds(30);

}  // namespace

RestoreLink::RestoreLink(Platform& machine, Session& shared, frmOrvalent& mainWindow,
                         const Form& itsWindow)
    : platform(machine),
      session(shared),
      main(mainWindow),
      window(itsWindow),
      radio(machine.MSComm2, machine.Events, shared, mainWindow, Conversation::Hears::Itself) {
  ListenForSettings(radio, main);
}

void RestoreLink::Open() {
  SerialPort& port = platform.MSComm2;
  if (port.PortOpen()) {
    SendToRadio("CLOS");
    main.txtTerm.Text = main.txtTerm.Text() +
                        "*** CLOS command sent to the radio before disabling the COMM port. "
                        "***\r\n";
    port.SetPortOpen(false);
  }
  port.SetSettings(platform.MSComm1.Settings());
  port.SetHandshaking(platform.MSComm1.Handshaking());
  port.SetCommPort(platform.MSComm1.CommPort());
  port.SetPortOpen(true);
  radio.Restart();
}

void RestoreLink::Wake(const std::function<bool()>& cancelled) {
  radio.Prime();
  WakeRadio(platform, radio,
            {.Pump = [this] { Pump(); },
             .Cancelled = [&] { return !window.Loaded() || !IsOpen() || cancelled(); }});
  if (!window.Loaded()) throw RestoreLinkLost{};
}

void RestoreLink::Sleep(int ms) { WaitMilliseconds(platform.Events, ms); }

void RestoreLink::Pump() {
  platform.Events.Pump();
  if (!window.Loaded()) throw RestoreLinkLost{};
}

void RestoreLink::Drop() {
  radio.Take();
  AwaitBacklog();
  CheckOpen();
  NoteDropped();
  radio.Prime();
}

// A slow radio is still busy with the wake, or with what the main window has asked.
void RestoreLink::AwaitBacklog() {
  const Duration deadline = platform.Events.Now() + longestBacklog;
  while (radio.PromptsDue() > 0 && radio.QuietFor() < longestAnswer && IsOpen() &&
         platform.Events.Now() < deadline) {
    radio.AwaitQuiet(longestAnswer, Milliseconds(100));
    Pump();
  }
  radio.Settle(Duration{});
  // A sleeping radio was asked more often than it answers.
  radio.ForgetLate();
}

void RestoreLink::CheckOpen() const {
  if (!IsOpen()) throw SerialError(SerialError::PortNotOpen, "The port is not open");
}

bool RestoreLink::ShowsPrompt() {
  radio.Prime();
  radio.SayBytes("\r");
  Sleep(promptTime);
  radio.Take();
  const bool shown = radio.HasBegun() && radio.AwaitText(longestAnswer - Milliseconds(promptTime),
                                                         [this] { return radio.AtPrompt(); });
  CheckOpen();
  // A slow radio may have more to say: on the line before, or on this one.
  if (shown) radio.Settle(longestAnswer);
  return shown;
}

void RestoreLink::NoteDropped() {
  constexpr std::size_t enough = 400;
  const std::string_view received = radio.Received();
  dropped = received.substr(received.size() - std::min(received.size(), enough));
}

bool RestoreLink::AwaitPrompt(const LossTeller& lost) {
  if (!IsOpen()) {
    platform.Dialogs.Message({"Error: Port is not open", "Error", Icon::Critical});
    return false;
  }
  if (ShowsPrompt()) return true;
  Sleep(retryPause);
  if (ShowsPrompt()) return true;
  const std::string details = lost ? lost() : "";
  platform.Dialogs.Message(
      {"There was an error communicating with the radio. Please reconnect and try again", "Error",
       Icon::Exclamation, Buttons::Ok, details});
  // While the box was up, the main window may have closed this one and connected anew.
  if (window.Loaded()) session.AskForReconnect();
  throw RestoreLinkLost{};
}

bool RestoreLink::SendToRadio(const std::string& line) {
  dropped.clear();
  if (!AwaitPrompt()) return false;
  NoteDropped();
  radio.Say(line);
  return true;
}

std::optional<std::string> RestoreLink::Ask(Conversation::Question question,
                                            const LossTeller& lost) {
  constexpr int attempts = 2;
  question.Limit = lastLook - firstLook;
  question.LimitOnceBegun = longestAnswer - firstLook;
  question.FirstLook = firstLook;
  question.InValue = Conversation::Question::Bracket::Stays;
  std::optional<std::string> value;
  bool again = true;
  for (int attempt = 0; again && attempt < attempts; ++attempt) {
    AwaitPrompt(lost);
    value = radio.Ask(question);
    CheckOpen();
    // Some of the reply has come, but not its end.
    again = !value && radio.HasBegun() && radio.CameLast() == Reply::State::Missing;
  }
  return value;
}

void RestoreLink::MSComm2_OnComm() {
  const CommNotice notice = NoticeOf(platform.MSComm2.CommEvent());
  const bool vanished = !IsOpen();
  if (notice.What == CommNotice::Kind::Event) commEventText = notice.Wording;
  if (notice.What != CommNotice::Kind::Error || errorShown) return;
  // A notice silences what the line does, not the end of the port.
  if (!commEventText.empty() && !vanished) return;
  const auto boxUp = Raised(errorShown);
  platform.Desktop.Beep();
  const Answer answer = platform.Dialogs.Message(
      {notice.Wording, "Click Cancel to quit, OK to ignore.", Icon::None, Buttons::OkCancel,
       vanished ? VanishedDetails("close this window and open it again.") : ""});
  if (answer == Answer::Cancel) Close();
}

}  // namespace quillmark
