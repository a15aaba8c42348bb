#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

namespace quillmark::sim {

// The simulator's time: microseconds since the start of the run. Nothing in the simulator reads a
// clock; whoever drives it says what time it is, and never goes back.
using Time = std::chrono::microseconds;

// Spaces bytes out as a serial line does: 10 bits a byte, without drift however long the burst.
class BytePacer {
 public:
  // The moment at which one more byte has wholly passed that may start at `at` at the earliest.
  // A baud of 0 is a line that takes no time.
  Time Next(Time at, int baud) {
    if (at > end || baud != rate || rate == 0) {
      start = std::max(at, end);
      count = 0;
      rate = baud;
    }
    ++count;
    end = rate == 0 ? start : start + Time(count * 10'000'000 / rate);
    return end;
  }
  // When the last byte has wholly passed.
  Time End() const { return end; }

 private:
  Time start{0};
  Time end{0};
  std::int64_t count = 0;
  int rate = 0;
};

}  // namespace quillmark::sim
