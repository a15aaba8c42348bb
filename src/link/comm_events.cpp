#include "link/comm_events.h"

#include <array>

#include "platform/serial_port.h"

namespace quillmark {

namespace {

using Kind = CommNotice::Kind;

// A code of the serial control and what it means.
struct Row {
  int Code;
  Kind What;
  const char* Wording;
};

constexpr std::array rows{
    Row{comm::Send, Kind::Nothing, ""},
    Row{comm::Receive, Kind::Received, ""},
    Row{comm::CtsChange, Kind::Event, "Change in CTS Detected"},
    Row{comm::DsrChange, Kind::Event, "Change in DSR Detected"},
    Row{comm::CarrierChange, Kind::Event, "Change in CD Detected"},
    Row{comm::Ring, Kind::Event, "Connecting"},
    Row{7, Kind::Event, "End of File Detected"},
    Row{comm::Break, Kind::Error, "Break Received"},
    Row{1002, Kind::Error, "CTS Timeout"},
    Row{1003, Kind::Error, "DSR Timeout"},
    Row{comm::FramingError, Kind::Error, "Framing Error"},
    Row{comm::OverrunError, Kind::Error, "Overrun Error"},
    Row{1007, Kind::Error, "Carrier Detect Timeout"},
    Row{comm::ReceiveBufferOverflow, Kind::Error, "Receive Buffer Overflow"},
    Row{comm::ParityError, Kind::Error, "Parity Error"},
    Row{1010, Kind::Error, "Transmit Buffer Full"},
    Row{1011, Kind::Error, "Error retrieving DCB"},
};

}  // namespace

CommNotice NoticeOf(int code) {
  for (const Row& row : rows) {
    if (row.Code == code) return {row.What, row.Wording};
  }
  return {Kind::Error, "Unknown error or event"};
}

std::string VanishedDetails(const std::string& reconnect) {
  return "The serial adapter was unplugged, or its driver gave it up. Plug it in again, then " +
         reconnect;
}

}  // namespace quillmark
