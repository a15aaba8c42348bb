#include "settings/option_window.h"

#include <utility>

#include "link/serial_failure.h"
#include "platform/utilities.h"

namespace quillmark {

OptionWindow::OptionWindow(std::string name, Platform& machine, frmOrvalent& window,
                           Conversation& conversation)
    : Form(std::move(name)), platform(machine), main(window), radio(conversation) {}

void OptionWindow::Send(const std::string& command, int pause) {
  // The window may be gone when the turn comes.
  const bool first = !command.empty() && !std::exchange(begun, true);
  const auto say = [&talk = radio, &events = platform.Events, &sent = main.Sent, command, pause,
                    first] {
    if (first) sent.Forget();
    const SentSettings::Listening listening(sent);
    talk.Say(command);
    if (pause > 0) WaitMilliseconds(events, pause);
  };
  if (radio.Turns.Idle()) return say();
  radio.Turns.WhenFree([say] {
    try {
      say();
    } catch (const SerialError&) {
      // A port that is lost meanwhile has its own notice.
      return;
    }
  });
}

std::function<void()> OptionWindow::Handler(std::function<void()> act) {
  return [this, act = std::move(act)] {
    try {
      act();
    } catch (const SerialError& error) {
      linkLost = true;
      ShowLinkError(platform.Dialogs, error);
      Unload();
    }
  };
}

void OptionWindow::Form_Unload() {
  if (linkLost) return;
  try {
    Send("");
  } catch (const SerialError& error) {
    ShowLinkError(platform.Dialogs, error);
  }
}

}  // namespace quillmark
