// Processor time while the window with the zones' counters is up and polls a radio on a line at the
// radio's own rate.

#include <QApplication>
#include <QWidget>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr Duration settlingTime = Seconds(4);
constexpr Duration measuredTime = Seconds(12);
constexpr Duration closingTime = Seconds(5);

// What was seen of the window. Timers do the acts, because the click returns only when it is
// closed.
struct Watch {
  Moment Begin, End;
  std::size_t PollsBefore = 0, Polls = 0;
};

Watch WatchZones(Desk& desk) {
  Watch watch;
  QObject owner;
  After(Duration(0), owner, [&] {
    desk.Main().ButtonZoneData.Click();  // returns when the window is closed
    desk.Leave();
  });
  After(settlingTime, owner, [&] {
    watch.PollsBefore = desk.Port().Exchanges().size();
    watch.Begin = Now();
  });
  After(settlingTime + measuredTime, owner, [&] {
    watch.End = Now();
    watch.Polls = desk.Port().Exchanges().size() - watch.PollsBefore;
    if (QWidget* window = QApplication::activeModalWidget()) window->close();
  });
  desk.RunFor(settlingTime + measuredTime + closingTime);
  return watch;
}

}  // namespace

std::vector<Figure> MeasureZonePolling(Surroundings& surroundings) {
  const double idleShare = surroundings.IdleRate() / 10;
  const RadioProcess radio(surroundings, {"--pace", "19200", "--zone-traffic", "20"});
  Desk desk(surroundings, radio.Device());
  desk.Connect();
  const Watch watch = WatchZones(desk);
  if (watch.Polls < 10) throw std::runtime_error("the zones are not polled");
  return {
      {.Name = "processor, polling zone data",
       .In = processorShare,
       .Measured = ShareBetween(watch.Begin, watch.End),
       .Floor = idleShare,
       .FloorName = idleFloorName,
       .Limit = 1.5,
       .Note = std::to_string(watch.Polls) + " polls in 12 s, each answered by 516 characters"}};
}

}  // namespace quillmark::bench
