// Processor time while the console tries to wake a radio that says nothing.

#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr Duration measuredTime = Seconds(12);
constexpr Duration longestStart = Seconds(30);

}  // namespace

std::vector<Figure> MeasureWaking(Surroundings& surroundings) {
  const double idleShare = surroundings.IdleRate() / 10;
  const RadioProcess radio(surroundings, {"--silent-from", "1"});
  Desk desk(surroundings, radio.Device());
  Moment begin, end;
  QObject owner;
  desk.Port().OnOutput = [&] {
    if (begin.Wall != Duration::zero()) return;
    begin = Now();
    After(measuredTime, owner, [&] {
      end = Now();
      desk.Quit();
    });
  };
  desk.Start(longestStart, "the console does not try to wake the radio");
  std::string received;
  for (const Exchange& exchange : desk.Port().Exchanges()) received += exchange.Received;
  return {{.Name = "processor, waking a radio",
           .In = processorShare,
           .Measured = ShareBetween(begin, end),
           .Floor = idleShare,
           .FloorName = idleFloorName,
           .Limit = 3,
           .Note = std::to_string(desk.Port().Exchanges().size()) + " bursts sent, " +
                   std::to_string(received.size()) + " bytes received"}};
}

}  // namespace quillmark::bench
