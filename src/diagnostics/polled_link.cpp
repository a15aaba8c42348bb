#include "diagnostics/polled_link.h"

#include <utility>

#include "link/serial_failure.h"

namespace quillmark {

PolledLink::PolledLink(Platform& machine, const frmOrvalent& window, Conversation& talk)
    : platform(machine), main(window), radio(talk), wasUp(machine.MSComm1.PortOpen()) {}

void PolledLink::Send(const std::string& command, int prompts) {
  const bool open = Open();
  try {
    radio.Say(command, prompts);
    wasUp = true;
  } catch (const SerialError& error) {
    if (OnLost) OnLost();
    // A port that vanished is told by its own event. The main window then shows it closed.
    platform.Events.Pump();
    const bool told = std::exchange(wasUp, false) && !main.mnuOpen.Checked();
    if (!told || (asked && !open)) ShowLinkError(platform.Dialogs, error);
  }
  asked = false;
}

}  // namespace quillmark
