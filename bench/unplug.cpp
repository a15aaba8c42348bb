// Processor time after the adapter was pulled out, from that very moment on.

#include <stdexcept>
#include <vector>

#include "child.h"
#include "desk.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr Duration measuredTime = Seconds(6);

}  // namespace

std::vector<Figure> MeasureUnplug(Surroundings& surroundings) {
  const double idleRate = surroundings.IdleRate();
  RadioProcess radio(surroundings, {});
  Desk desk(surroundings, radio.Device());
  desk.Connect();
  desk.Boxes().LastMessage.clear();
  const Moment begin = Now();
  radio.Unplug();
  desk.RunFor(measuredTime);
  const Moment end = Now();
  if (desk.Port().PortOpen() || desk.Boxes().LastMessage.empty()) {
    throw std::runtime_error("the console has not noticed that the port is gone");
  }
  return {{.Name = "processor, after an unplug",
           .In = processorRate,
           .Measured = RateBetween(begin, end),
           .Floor = idleRate,
           .FloorName = idleFloorName,
           .Limit = 5,
           .Note = "with the box \"" + desk.Boxes().LastMessage + "\""}};
}

}  // namespace quillmark::bench
