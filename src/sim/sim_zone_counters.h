#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>

#include "sim/sim_time.h"

namespace quillmark::sim {

// The traffic counters of the eight zones and the reply that shows them. Owned by SimRadio.
class SimZoneCounters {
 public:
  explicit SimZoneCounters(unsigned seed) : random(seed) {}

  // Zone 1 to 8; any other zone is ignored.
  void Set(int zone, std::int64_t tx, std::int64_t rx, std::int64_t errors);
  void Clear(Time now);
  // Lets traffic pass that has gone by since the last call: so many packets a second in each zone
  // that is not in `skipped` (digits), the same number each way, a few of them with errors.
  void Pass(Time now, int packetsPerSecond, const std::string& skipped);
  // The reply text: for each zone three lines such as "1:TX TOTAL 00000012".
  std::string Text() const;

 private:
  // The counters of one zone.
  struct Zone {
    std::int64_t Tx = 0;
    std::int64_t Rx = 0;
    std::int64_t Errors = 0;
  };
  std::array<Zone, 8> zones{};
  std::mt19937 random;
  Time passedUntil{0};
};

}  // namespace quillmark::sim
