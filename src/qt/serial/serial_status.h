#pragma once

#include <memory>
#include <optional>

namespace quillmark {

// What a serial driver tells of its line besides the bytes. SerialWorker asks on its own thread; a
// test plays a driver by a source of its own. Every question may fail, and most devices that are no
// real line (a pseudo-terminal) answer none.

// How often something has happened on the line since the driver began to count. The numbers wrap.
struct LineCounts {
  unsigned Cts = 0;  // this and the next two: changes to either level
  unsigned Dsr = 0;
  unsigned Carrier = 0;
  unsigned Ring = 0;
  unsigned Break = 0;
  unsigned Framing = 0;
  unsigned Overrun = 0;         // in the device
  unsigned BufferOverflow = 0;  // in the driver
  unsigned Parity = 0;
};

// Which of the other end's signals are on.
struct LineLevels {
  bool Cts = false;
  bool Dsr = false;
  bool Carrier = false;
  bool Ring = false;
};

// Who is asked about the line of an open device.
class LineStatusSource {
 public:
  virtual ~LineStatusSource() = default;

  // `handle` is that of an open device. Nothing: the driver cannot tell. The levels may take the
  // time of a question to a USB adapter.
  virtual std::optional<LineCounts> Counts(int handle) const = 0;
  virtual std::optional<LineLevels> Levels(int handle) const = 0;
};

// The system's drivers. Only Linux has a way to ask them; elsewhere the source tells nothing.
std::shared_ptr<const LineStatusSource> SystemLineStatus();

}  // namespace quillmark
