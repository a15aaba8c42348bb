#pragma once

#include <utility>

#include "platform/dialogs.h"
#include "platform/serial_port.h"

namespace quillmark {

// Tells the user that the radio was lost, when the port was not available or not open; any other
// serial failure stays silent.
void ShowLinkError(Dialogs& dialogs, const SerialError& error);

// Whether the port is open; a box asks for that when it is not.
bool PortIsOpen(Dialogs& dialogs, const SerialPort& port);

// Runs a handler that talks to the radio; a serial failure ends it with the box above.
template <class Handler>
void WithLinkErrors(Dialogs& dialogs, Handler&& handler) {
  try {
    std::forward<Handler>(handler)();
  } catch (const SerialError& error) {
    ShowLinkError(dialogs, error);
  }
}

}  // namespace quillmark
