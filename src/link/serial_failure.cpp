#include "link/serial_failure.h"

namespace quillmark {

void ShowLinkError(Dialogs& dialogs, const SerialError& error) {
  if (error.Number != SerialError::PortNotAvailable && error.Number != SerialError::PortNotOpen) {
    return;
  }
  dialogs.Message(
      {"There was an error communicating with the radio. Please reconnect and try again", "Error",
       Icon::Exclamation, Buttons::Ok, error.Details});
}

bool PortIsOpen(Dialogs& dialogs, const SerialPort& port) {
  if (port.PortOpen()) return true;
  dialogs.Message({"Please Toggle COMM Port open first.", "User Help"});
  return false;
}

}  // namespace quillmark
