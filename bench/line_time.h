#pragma once

#include <algorithm>
#include <string>

#include "recorded_port.h"

namespace quillmark::bench {

// What one exchange takes on the line and in the radio, in seconds; `thinkTime` is in ms, for each
// command. The echo of a character leaves while the next one arrives.
inline double LineTime(const Exchange& exchange, int baud, int thinkTime) {
  const double byteTime = 10.0 / baud;
  const std::string word = exchange.Sent.substr(0, exchange.Sent.find('\r'));
  const std::size_t echoed = exchange.Received.starts_with(word) ? word.size() : 0;
  const auto commands = static_cast<double>(std::ranges::count(exchange.Sent, '\r'));
  return static_cast<double>(exchange.Sent.size() + exchange.Received.size() - echoed) * byteTime +
         commands * thinkTime / 1000;
}

}  // namespace quillmark::bench
