#include "sim/sim_zone_counters.h"

#include "sim/sim_words.h"

namespace quillmark::sim {

namespace {

// Counters are shown in 8 digits and start again at 0 behind them.
constexpr std::int64_t counterRange = 100'000'000;

std::string Line(std::size_t zone, std::string_view label, std::int64_t value) {
  return std::to_string(zone) + ":" + std::string(label) + " " + Padded(value % counterRange, 8);
}

}  // namespace

void SimZoneCounters::Set(int zone, std::int64_t tx, std::int64_t rx, std::int64_t errors) {
  if (zone < 1 || zone > 8) return;
  zones[static_cast<std::size_t>(zone - 1)] = {tx, rx, errors};
}

void SimZoneCounters::Clear(Time now) {
  zones = {};
  passedUntil = now;
}

void SimZoneCounters::Pass(Time now, int packetsPerSecond, const std::string& skipped) {
  if (packetsPerSecond <= 0) return;
  const std::int64_t due = (now - passedUntil).count() * packetsPerSecond / 1'000'000;
  passedUntil += Time(due * 1'000'000 / packetsPerSecond);
  for (std::size_t i = 0; i < zones.size(); ++i) {
    if (skipped.find(std::to_string(i + 1)) != std::string::npos) continue;
    const auto spread = static_cast<std::int64_t>(random() % 3);
    const std::int64_t sent = due == 0 ? 0 : due + spread;
    zones[i].Tx += sent;
    zones[i].Rx += sent;
    zones[i].Errors += sent * static_cast<std::int64_t>(random() % (i + 2)) / 20;
  }
}

std::string SimZoneCounters::Text() const {
  std::string text;
  for (std::size_t i = 0; i < zones.size(); ++i) {
    if (i > 0) text += "\r\n";
    text += Line(i + 1, "TX TOTAL", zones[i].Tx) + "\r\n";
    text += Line(i + 1, "RX TOTAL", zones[i].Rx) + "\r\n";
    text += Line(i + 1, "RX ERROR", zones[i].Errors);
  }
  return text;
}

}  // namespace quillmark::sim
