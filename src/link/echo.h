#pragma once

#include "link/session.h"
#include "platform/serial_port.h"

namespace quillmark {

// Switches the radio's echo off round a secret, and on again. The link's state remembers it, so
// that no way out leaves a radio without its echo. Throws SerialError on a closed port.
inline void SwitchEcho(SerialPort& port, LinkState& link, bool on) {
  port.Output(on ? "eeco\r" : "deco\r");
  link.EchoIsOff = !on;
}

}  // namespace quillmark
