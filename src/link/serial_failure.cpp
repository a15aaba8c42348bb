#include "link/serial_failure.h"

namespace quillmark {

void ShowLinkError(Dialogs& dialogs, const SerialError& error) {
  if (error.Number != SerialError::PortNotAvailable && error.Number != SerialError::PortNotOpen) {
    return;
  }
  dialogs.Message(
      {.Text = "There was an error communicating with the radio. Please reconnect and try again",
       .Title = "Error",
       .Symbol = Icon::Exclamation,
       .Details = error.Details});
}

bool PortIsOpen(Dialogs& dialogs, const SerialPort& port) {
  if (port.PortOpen()) return true;
  dialogs.Message({"Please Toggle COMM Port open first.", "User Help"});
  return false;
}

}  // namespace quillmark
