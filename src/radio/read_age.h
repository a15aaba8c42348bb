#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/frmOrvalent.h"
#include "platform/event_loop.h"
#include "platform/serial_port.h"

namespace quillmark {

// Tells how old the rows of the main window are when no radio is connected: they are dimmed, and a
// notice has the time of the last read. The rows of a new link lose that look one by one, as they
// are read.
class ReadAge {
 public:
  ReadAge(EventLoop& events, const SerialPort& port, frmOrvalent& main);

  // Has a click on a dimmed row explained. The rows have their handlers already, which run behind
  // that.
  void Wire();

  // The radio has answered a whole read.
  void ReadDone();
  void Connected();
  void Disconnected();

 private:
  void TellTime();
  void Explain();

  EventLoop& events;
  const SerialPort& port;
  frmOrvalent& main;
  std::optional<std::int64_t> lastRead;  // local seconds
};

}  // namespace quillmark
