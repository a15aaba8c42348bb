#include "restore/restore_link.h"

#include "link/comm_events.h"
#include "link/serial_failure.h"
#include "prefs/utilities.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int promptTime = 50;  // ms, from a carriage return to the look for its prompt
constexpr int retryPause = 100;
constexpr int firstLook = 50;
constexpr int lookInterval = 10;
constexpr int lastLook = 400;

constexpr std::string_view lineEnd = "\r\n";

// The place behind a prompt that stands alone at `at`, behind a line end and in front of another
// one; or `at` itself. A value may begin with ">".
std::size_t SkipBarePrompt(std::string_view text, std::size_t at) {
  for (const std::string_view bare : {"\r\n>", "\r\nSETUP>"}) {
    const std::string_view rest = text.substr(at);
    if (rest.starts_with(bare) && rest.substr(bare.size()).starts_with(lineEnd)) {
      return at + bare.size();
    }
  }
  return at;
}

// The place, from 0, of the prompt that ends a value: at the head of a line, and nothing but a line
// end behind it. A ">" within a value is none.
std::size_t FindPrompt(std::string_view text, std::size_t from, std::string_view prompt) {
  for (std::size_t at = text.find(prompt, from); at != std::string_view::npos;
       at = text.find(prompt, at + 1)) {
    const std::string_view before = text.substr(from, at - from);
    const std::string_view behind = text.substr(at + prompt.size());
    if (before.ends_with(lineEnd) && (behind.empty() || behind.starts_with('\r'))) return at;
  }
  return std::string_view::npos;
}

}  // namespace

std::optional<std::string> CutRestoreReply(std::string_view received, std::string_view word,
                                           bool inSetupMode) {
  const std::size_t echo = received.find(word);
  if (echo == std::string_view::npos) return std::nullopt;
  std::size_t start = echo + word.size();
  for (std::size_t next = SkipBarePrompt(received, start); next != start;
       next = SkipBarePrompt(received, start)) {
    start = next;
  }
  start += lineEnd.size();
  if (start > received.size()) return std::nullopt;
  std::size_t prompt = FindPrompt(received, start, inSetupMode ? "SETUP>" : ">");
  // The radio may have left setup mode meanwhile.
  if (inSetupMode && prompt == std::string_view::npos) prompt = FindPrompt(received, start, ">");
  if (prompt == std::string_view::npos) return std::nullopt;
  return std::string(received.substr(start, prompt - lineEnd.size() - start));
}

RestoreLink::RestoreLink(Platform& machine, Session& shared, frmOrvalent& mainWindow,
                         const Form& itsWindow)
    : platform(machine), session(shared), main(mainWindow), window(itsWindow) {}

void RestoreLink::Open() {
  SerialPort& port = platform.MSComm2;
  if (port.PortOpen()) {
    SendToRadio("CLOS\r");
    main.txtTerm.Text = main.txtTerm.Text() +
                        "*** CLOS command sent to the radio before disabling the COMM port. "
                        "***\r\n";
    port.SetPortOpen(false);
  }
  port.SetSettings(platform.MSComm1.Settings());
  port.SetHandshaking(platform.MSComm1.Handshaking());
  port.SetCommPort(platform.MSComm1.CommPort());
  port.SetPortOpen(true);
}

void RestoreLink::Sleep(int ms) { WaitMilliseconds(platform.Events, ms); }

void RestoreLink::Pump() {
  platform.Events.Pump();
  if (!window.Loaded()) throw RestoreLinkLost{};
}

std::string RestoreLink::Take() {
  std::string input = platform.MSComm2.Input();
  if (!IsOpen()) throw SerialError(SerialError::PortNotOpen, "The port is not open");
  return input;
}

bool RestoreLink::PromptAfter(const char* bytes) {
  Output(bytes);
  Sleep(promptTime);
  session.RxBuffer = Take();
  return session.RxBuffer.View().ends_with('>');
}

void RestoreLink::SendToRadio(const std::string& text) {
  if (!IsOpen()) {
    platform.Dialogs.Message({"Error: Port is not open", "Error", Icon::Critical});
    return;
  }
  if (!PromptAfter("\r")) {
    Sleep(retryPause);
    if (!PromptAfter("\r")) {
      platform.Dialogs.Message(
          {"There was an error communicating with the radio. Please reconnect and try again",
           "Error", Icon::Exclamation});
      // While the box was up, the main window may have closed this one and connected anew.
      if (window.Loaded()) session.RestoreLinkFailed = true;
      throw RestoreLinkLost{};
    }
  }
  Output(text);
}

std::optional<std::string> RestoreLink::Ask(const std::string& word) {
  session.RxBuffer = " ";
  SendToRadio(word + "\r");
  Sleep(firstLook);
  session.RxBuffer = Take();
  for (int waited = firstLook;; waited += lookInterval) {
    auto value = CutRestoreReply(session.RxBuffer, word, session.InSetupMode);
    if (value || waited >= lastLook) return value;
    Sleep(lookInterval);
    session.RxBuffer.Append(Take());
  }
}

void RestoreLink::MSComm2_OnComm() {
  const CommNotice notice = NoticeOf(platform.MSComm2.CommEvent());
  const bool vanished = !IsOpen();
  if (notice.What == CommNotice::Kind::Event) commEventText = notice.Wording;
  if (notice.What != CommNotice::Kind::Error || errorShown) return;
  // A notice silences what the line does, not the end of the port.
  if (!commEventText.empty() && !vanished) return;
  errorShown = true;
  struct Gone {
    bool& flag;
    ~Gone() { flag = false; }
  } gone{errorShown};
  platform.Desktop.Beep();
  const Answer answer = platform.Dialogs.Message(
      {notice.Wording, "Click Cancel to quit, OK to ignore.", Icon::None, Buttons::OkCancel,
       vanished ? VanishedDetails("close this window and open it again.") : ""});
  if (answer == Answer::Cancel) Close();
}

}  // namespace quillmark
