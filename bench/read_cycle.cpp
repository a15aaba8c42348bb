// One reading of all settings over a line at the radio's own rate: how long it takes, against what
// the line, the radio and the pauses between take by themselves.

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr int baud = 19200;
constexpr int thinkTime = 5;  // ms, from the radio's having a whole command to its reply
constexpr int cycles = 3;

// What one read sent and received.
struct Counts {
  std::size_t Commands = 0;
  std::size_t Bytes = 0;   // in both directions
  std::size_t Echoed = 0;  // of them, those on the line while the next one is sent
  int Arrivals = 0;
  int Pauses = 0;
  Duration Paused{};
};

// One read of all settings.
struct Cycle {
  Moment Begin, End;
  Counts What;
  double Floor = 0;  // s

  double Ratio() const { return SecondsBetween(Begin, End) / Floor; }
  double Share() const { return ShareBetween(Begin, End); }
};

// The radio echoes each character while the next one is sent, the one in front of the carriage
// return as well. The carriage return itself is answered after the think time.
std::size_t Echoed(const Exchange& exchange) {
  const std::string word = exchange.Sent.substr(0, exchange.Sent.find('\r'));
  return exchange.Received.starts_with(word) ? word.size() : 0;
}

Counts Count(const std::vector<Exchange>& exchanges) {
  Counts counts;
  for (const Exchange& exchange : exchanges) {
    counts.Commands += static_cast<std::size_t>(std::ranges::count(exchange.Sent, '\r'));
    counts.Bytes += exchange.Sent.size() + exchange.Received.size();
    counts.Echoed += Echoed(exchange);
    counts.Arrivals += exchange.Arrivals;
  }
  return counts;
}

double FloorOf(const Counts& counts) {
  constexpr double byteTime = 10.0 / baud;
  return static_cast<double>(counts.Bytes - counts.Echoed) * byteTime +
         static_cast<double>(counts.Commands) * thinkTime / 1000 +
         static_cast<double>(counts.Paused.count()) / 1e6;
}

Cycle ReadOnce(Desk& desk) {
  Cycle cycle;
  desk.Port().Forget();
  const int pausesBefore = desk.Loop().Pauses();
  const Duration pausedBefore = desk.Loop().Paused();
  desk.OnRead = [&] {
    cycle.End = Now();
    desk.Leave();
  };
  desk.ReadAgain();
  cycle.Begin = desk.Port().Exchanges().at(0).SentAt;
  cycle.What = Count(desk.Port().Exchanges());
  cycle.What.Pauses = desk.Loop().Pauses() - pausesBefore;
  cycle.What.Paused = desk.Loop().Paused() - pausedBefore;
  cycle.Floor = FloorOf(cycle.What);
  return cycle;
}

std::string NoteOf(const Counts& counts) {
  char note[200];
  std::snprintf(note, sizeof note,
                "%zu commands, %zu bytes on the line of which %zu overlap, taken in %d pieces; %d "
                "pauses of %.2f s in all; the median of %d cycles",
                counts.Commands, counts.Bytes, counts.Echoed, counts.Arrivals, counts.Pauses,
                static_cast<double>(counts.Paused.count()) / 1e6, cycles);
  return note;
}

template <class Value>
Cycle MedianBy(std::vector<Cycle> all, Value value) {
  std::ranges::sort(all, {}, value);
  return all[all.size() / 2];
}

}  // namespace

std::vector<Figure> MeasureReadCycle(Surroundings& surroundings) {
  const double idleShare = surroundings.IdleRate() / 10;
  const RadioProcess radio(
      surroundings, {"--pace", std::to_string(baud), "--think-ms", std::to_string(thinkTime)});
  Desk desk(surroundings, radio.Device());
  // The first cycle also finds out who is logged in, which is no reading.
  desk.Connect();
  std::vector<Cycle> all;
  all.reserve(cycles);
  for (int i = 0; i < cycles; ++i) all.push_back(ReadOnce(desk));
  const Cycle timed = MedianBy(all, &Cycle::Ratio);
  const Cycle costed = MedianBy(all, &Cycle::Share);
  return {{.Name = "read cycle",
           .In = seconds,
           .Measured = SecondsBetween(timed.Begin, timed.End),
           .Floor = timed.Floor,
           .FloorName = "line, radio and pauses",
           .By = Judged::Ratio,
           .Limit = 1.05,
           .Note = NoteOf(timed.What)},
          {.Name = "processor, read cycle",
           .In = processorShare,
           .Measured = costed.Share(),
           .Floor = idleShare,
           .FloorName = idleFloorName,
           .Limit = 2.5}};
}

}  // namespace quillmark::bench
