#include "link/receiver.h"

#include <string_view>

#include "link/comm_events.h"
#include "link/connection.h"
#include "link/serial_failure.h"

namespace quillmark {

namespace {

constexpr std::size_t terminalLimit = 16000;  // characters, before the last arrival
constexpr std::size_t terminalCut = 4096;
constexpr char backspace = 8;

// A received text after its backspaces have been carried out.
struct Edited {
  std::string Text;
  bool ReachesBack = false;  // one stood ahead of the text: it takes what was received before
};

// Each backspace takes the character in front of it away.
Edited WithoutBackspaces(std::string_view data) {
  Edited edited;
  for (const char c : data) {
    if (c != backspace) {
      edited.Text += c;
    } else if (edited.Text.empty()) {
      edited.ReachesBack = true;
    } else {
      edited.Text.pop_back();
    }
  }
  return edited;
}

std::string WithTerminalLineEnds(std::string_view data) {
  std::string lines;
  for (const char c : data) {
    if (c == '\n') continue;
    lines += c;
    if (c == '\r') lines += '\n';
  }
  return lines;
}

}  // namespace

Receiver::Receiver(Platform& machine, Session& shared, frmOrvalent& window, Connection& link,
                   Conversation& conversation, TerminalLog& terminalLog)
    : platform(machine),
      session(shared),
      main(window),
      connection(link),
      radio(conversation),
      log(terminalLog) {}

void Receiver::MSComm1_OnComm() {
  // A scripted run reads the port itself. The loss of the port is handled here all the same.
  if (main.DirectPortMode && platform.MSComm1.CommEvent() != comm::PortVanished) return;
  CommEventText.clear();
  CommErrorText.clear();
  WithLinkErrors(platform.Dialogs, [this] {
    const CommNotice notice = NoticeOf(platform.MSComm1.CommEvent());
    switch (notice.What) {
      case CommNotice::Kind::Nothing:
        break;
      case CommNotice::Kind::Received:
        // It is announced again.
        if (radio.Resting()) break;
        ReceiveChunk = platform.MSComm1.Input();
        ReceiveText(main.txtTerm, ReceiveChunk);
        break;
      case CommNotice::Kind::Event:
        CommEventText = notice.Wording;
        ShowCommStatusText(CommEventText);
        break;
      case CommNotice::Kind::Error:
        if (!errorBoxUp && !SparesTransfer()) ReportError(notice.Wording);
        break;
    }
  });
}

// No box during a firmware transfer: it would stop the transfer, and the loader would give up. Line
// errors are normal there, because the rate changes. The loader tells at the end whether the image
// is whole.
bool Receiver::SparesTransfer() const {
  return !main.ShowCommStatus && radio.Turns.Taken() && platform.MSComm1.PortOpen();
}

void Receiver::ShowCommStatusText(const std::string& wording) {
  if (main.ShowCommStatus) main.pnl_Status.Text = "Status: " + wording;
  main.Timer2.Enabled = true;
}

void Receiver::ReportError(const std::string& wording) {
  CommErrorText = wording;
  if (main.ShowCommStatus) main.pnl_Status.Text = "Status: " + wording;
  platform.Desktop.Beep();
  errorBoxUp = true;
  // The box may stay up for long; the window must not go on showing a link meanwhile.
  const bool vanished = !platform.MSComm1.PortOpen();
  if (vanished) {
    connection.ShowDisconnected();
    // The loss is told in one box.
    connection.StopPortTimeout();
  }
  const Answer answer =
      platform.Dialogs.Message({.Text = wording,
                                .Title = "Click Cancel to quit, OK to ignore.",
                                .Choice = Buttons::OkCancel,
                                .Details = vanished ? VanishedDetails("click Connect...") : ""});
  errorBoxUp = false;
  // A port that closed itself is gone for any answer.
  if (answer == Answer::Cancel || !platform.MSComm1.PortOpen()) {
    connection.DisconnectRadio();
    platform.MSComm1.SetPortOpen(false);
  }
  main.Timer2.Enabled = true;
}

// A password that is typed into the terminal is no command of the console's.
void Receiver::FollowLogin(std::string_view shown) {
  constexpr std::string_view accepted = "PASSWORD OK";
  for (const char c : shown) {
    if (c == '\r' || c == '\n') {
      if (line == accepted && main.NotLoggedIn.Visible()) main.ShowLoggedIn();
      line.clear();
    } else if (line.size() <= accepted.size()) {
      line += c;
    }
  }
}

void Receiver::ReceiveText(TextBox& term, std::string& data) {
  if (main.DiscardReceived) {
    radio.Discard(data);
    data = " ";
  } else {
    data = radio.Hear(data);
    FollowLogin(data);
  }
  // More than once only behind an arrival larger than the cut.
  while (term.Text().size() > terminalLimit) term.Text = term.Text().substr(terminalCut);
  const std::size_t termLength = term.Text().size();
  if (session.RxBuffer.HoldsClosed()) connection.DisableRadioActions();
  term.SetSelStart(termLength);
  const Edited edited = WithoutBackspaces(data);
  if (edited.ReachesBack && termLength > 0) {
    term.SetSelStart(termLength - 1);
    term.SetSelLength(1);
  }
  data = WithTerminalLineEnds(edited.Text);
  if (main.TerminalEcho) term.SetSelText(data);
  log.Write(data);
  term.SetSelStart(term.Text().size());
}

}  // namespace quillmark
