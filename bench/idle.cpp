// Processor time of a console that is connected and has nothing to do.

#include <vector>

#include "child.h"
#include "desk.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr Duration settlingTime = Seconds(1);
constexpr Duration measuredTime = Seconds(12);

}  // namespace

std::vector<Figure> MeasureIdle(Surroundings& surroundings) {
  const double idleRate = surroundings.IdleRate();
  const RadioProcess radio(surroundings, {});
  Desk desk(surroundings, radio.Device());
  desk.Connect();
  desk.RunFor(settlingTime);
  const Moment begin = Now();
  desk.RunFor(measuredTime);
  return {{.Name = "processor, connected and idle",
           .In = processorRate,
           .Measured = RateBetween(begin, Now()),
           .Floor = idleRate,
           .FloorName = idleFloorName,
           .Limit = 2}};
}

}  // namespace quillmark::bench
