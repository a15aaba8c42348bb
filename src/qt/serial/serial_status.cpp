#include "qt/serial/serial_status.h"

#ifdef __linux__
#include <linux/serial.h>
#include <sys/ioctl.h>
#endif

namespace quillmark {

namespace {

#ifdef __linux__

// Asks the driver behind an open device.
class DriverStatus : public LineStatusSource {
 public:
  std::optional<LineCounts> Counts(int handle) const override {
    serial_icounter_struct counted{};
    if (ioctl(handle, TIOCGICOUNT, &counted) != 0) return std::nullopt;
    const auto number = [](int count) { return static_cast<unsigned>(count); };
    return LineCounts{.Cts = number(counted.cts),
                      .Dsr = number(counted.dsr),
                      .Carrier = number(counted.dcd),
                      .Ring = number(counted.rng),
                      .Break = number(counted.brk),
                      .Framing = number(counted.frame),
                      .Overrun = number(counted.overrun),
                      .BufferOverflow = number(counted.buf_overrun),
                      .Parity = number(counted.parity)};
  }

  std::optional<LineLevels> Levels(int handle) const override {
    int lines = 0;
    if (ioctl(handle, TIOCMGET, &lines) != 0) return std::nullopt;
    return LineLevels{.Cts = (lines & TIOCM_CTS) != 0,
                      .Dsr = (lines & TIOCM_DSR) != 0,
                      .Carrier = (lines & TIOCM_CAR) != 0,
                      .Ring = (lines & TIOCM_RNG) != 0};
  }
};

#else

// Tells nothing.
class DriverStatus : public LineStatusSource {
 public:
  std::optional<LineCounts> Counts(int) const override { return std::nullopt; }
  std::optional<LineLevels> Levels(int) const override { return std::nullopt; }
};

#endif

}  // namespace

std::shared_ptr<const LineStatusSource> SystemLineStatus() {
  return std::make_shared<DriverStatus>();
}

}  // namespace quillmark
