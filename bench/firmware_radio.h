#pragma once

#include <cstdint>
#include <string>

namespace quillmark::bench {

// A radio that waits in its loader, on a line at the rate that the console sets, and measures the
// transfer of an image. It serves it from a process of its own (this program with --take-firmware),
// so that its processor time is not the console's.

// What it has seen: printed as one line when the transfer has ended.
struct TransferSeen {
  std::int64_t Bytes = 0;
  std::int64_t Microseconds = 0;  // from the first byte's arrival to the last one's
  std::int64_t MostAhead = 0;     // bytes that had been sent and were not over the line yet
  bool Sound = false;
};

std::string TransferLine(const TransferSeen& seen);
// Throws std::runtime_error on any other line.
TransferSeen ReadTransferLine(const std::string& line);

// Serves until it is ended; prints "radio on DEVICE" first. Gives the program's exit code.
int TakeFirmware();

}  // namespace quillmark::bench
