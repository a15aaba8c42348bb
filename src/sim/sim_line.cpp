#include "sim/sim_line.h"

#include <algorithm>
#include <utility>

namespace quillmark::sim {

namespace {

void Earlier(std::optional<Time>& earliest, std::optional<Time> other) {
  if (other && (!earliest || *other < *earliest)) earliest = other;
}

}  // namespace

void LineLog::Add(Direction& direction, Time at, char byte) {
  // Cut in large pieces, so that a full log does not move its content for every byte.
  if (direction.Bytes.size() >= limit + limit / 4) {
    const auto surplus = static_cast<std::ptrdiff_t>(direction.Bytes.size() - limit);
    direction.Bytes.erase(direction.Bytes.begin(), direction.Bytes.begin() + surplus);
    direction.Times.erase(direction.Times.begin(), direction.Times.begin() + surplus);
  }
  direction.Bytes += byte;
  direction.Times.push_back(at);
}

SimLine::SimLine(SimRadio& itsRadio, LineFaults faults)
    : radio(itsRadio), player(std::move(faults)), commands(itsRadio.CommandCount()) {
  radio.Muted = [this](int command) { return player.IsMuted(command); };
  radio.OnReply = [this](Reply& reply) { player.Change(reply); };
}

SimLine::~SimLine() {
  radio.Muted = nullptr;
  radio.OnReply = nullptr;
}

void SimLine::HostSends(Time at, std::string_view bytes, int hostBaud) {
  if (hungUp) return;
  for (const char byte : bytes) {
    arrivals.push_back({pacer.Next(at, radio.Pace(hostBaud)), byte, hostBaud});
    log.Add(log.toRadio, arrivals.back().At, byte);
  }
}

std::size_t SimLine::HostBytesPending(Time now) const {
  const auto first =
      std::upper_bound(arrivals.begin(), arrivals.end(), now,
                       [](Time time, const Arrival& arrival) { return time < arrival.At; });
  return static_cast<std::size_t>(arrivals.end() - first);
}

std::optional<Time> SimLine::HostDrained() const {
  if (arrivals.empty()) return std::nullopt;
  return arrivals.back().At;
}

std::optional<Time> SimLine::NextEvent() const {
  if (hungUp) return std::nullopt;
  std::optional<Time> next = radio.NextDeparture();
  if (!arrivals.empty()) Earlier(next, arrivals.front().At);
  Earlier(next, player.NextBabble());
  Earlier(next, player.HangUpTime());
  return next;
}

std::string SimLine::Advance(Time until) {
  std::string forHost;
  for (auto next = NextEvent(); next && *next <= until; next = NextEvent()) Step(*next, forHost);
  player.RestUntil(until);
  return forHost;
}

void SimLine::Restore() {
  hungUp = false;
  arrivals.clear();
  radio.DropOutput();
  LineFaults& faults = player.Faults();
  faults.HangUpAtByteToHost = 0;
  faults.HangUpAtByteToRadio = 0;
  faults.HangUpAtCommand = 0;
  faults.HangUpAtMs = 0;
}

void SimLine::ClearLog() {
  log.toRadio = {};
  log.toHost = {};
}

void SimLine::Step(Time now, std::string& forHost) {
  if (const auto time = player.HangUpTime(); time && *time <= now) {
    hungUp = true;
    return;
  }
  while (!arrivals.empty() && arrivals.front().At <= now && !hungUp) {
    const Arrival arrival = arrivals.front();
    arrivals.pop_front();
    Arrive(arrival);
  }
  if (const auto babble = player.NextBabble(); babble && *babble <= now) {
    Deliver(now, std::string(1, player.TakeBabble()), forHost);
  }
  const std::string departed = radio.Departed(now);
  LookForCommands();
  Deliver(now, departed, forHost);
}

void SimLine::Arrive(const Arrival& arrival) {
  const std::string bytes = player.ToRadio(arrival.Byte);
  radio.Receive(arrival.At, bytes, arrival.Baud);
  LookForCommands();
  if (player.HangUpReached()) hungUp = true;
}

void SimLine::Deliver(Time now, std::string_view bytes, std::string& forHost) {
  for (const char byte : bytes) {
    if (hungUp) return;
    for (const char value : player.ToHost(byte)) {
      log.Add(log.toHost, now, value);
      forHost += value;
    }
    if (player.HangUpReached()) hungUp = true;
  }
}

void SimLine::LookForCommands() {
  while (commands < radio.CommandCount()) {
    if (player.HangsUpAt(++commands)) hungUp = true;
  }
}

}  // namespace quillmark::sim
