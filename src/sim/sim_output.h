#pragma once

#include <deque>
#include <optional>
#include <string_view>

#include "sim/sim_time.h"

namespace quillmark::sim {

// The radio's way out: bytes wait here behind each other and leave at the pace of the line. Owned
// by SimRadio. Holds at most 1 MiB; what comes on top of that is lost, as in any full buffer.
class SimOutput {
 public:
  // A byte that the radio sends.
  struct Byte {
    Time Leaves;
    char Value;
    int Baud;  // at which it goes out, whatever the pace
  };

  // Queues text that starts at `at` at the earliest. `pace` in baud; 0 takes no time.
  void Queue(Time at, std::string_view text, int baud, int pace);
  std::optional<Time> NextDeparture() const;
  // Takes the next byte if it has wholly left by then.
  std::optional<Byte> Take(Time until);
  void Clear() { bytes.clear(); }

 private:
  std::deque<Byte> bytes;
  BytePacer pacer;
};

}  // namespace quillmark::sim
