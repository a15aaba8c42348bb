#include "sim/sim_output.h"

namespace quillmark::sim {

namespace {

constexpr std::size_t mostBytes = 1 << 20;

}  // namespace

void SimOutput::Queue(Time at, std::string_view text, int baud, int pace) {
  for (const char value : text) {
    if (bytes.size() == mostBytes) return;
    bytes.push_back({pacer.Next(at, pace), value, baud});
  }
}

std::optional<Time> SimOutput::NextDeparture() const {
  if (bytes.empty()) return std::nullopt;
  return bytes.front().Leaves;
}

std::optional<SimOutput::Byte> SimOutput::Take(Time until) {
  if (bytes.empty() || bytes.front().Leaves > until) return std::nullopt;
  const Byte byte = bytes.front();
  bytes.pop_front();
  return byte;
}

}  // namespace quillmark::sim
