// One read of the store and restore window over a line at the radio's own rate: how long it takes,
// against what the line, the radio and the prescribed pauses take by themselves. A pause goes on
// while the line is busy, so of each sending only the longer of the two counts. And the processor
// time of the window while it is open and has nothing to do.

#include <QTimer>
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "line_time.h"
#include "measurements.h"
#include "restore/frmRestore.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr int baud = 19200;
constexpr int thinkTime = 5;  // ms, from the radio's having a whole command to its reply
constexpr int look = 5;       // ms between looks whether a read has ended
constexpr Duration settlingTime = Seconds(1);
constexpr Duration idleTime = Seconds(12);
constexpr Duration longestVisit = Seconds(60);

// What is done while the window is up, step by step; the window holds up its caller that long.
class Visit {
 public:
  explicit Visit(Desk& itsDesk) : desk(itsDesk) {}

  void Make() {
    After(longestVisit, owner, [this] { desk.Quit(); });
    AfterRead([this] { ReadOnce(); });
    desk.Main().mnuConfigRestore.Click();
    if (idleEnd.Wall == Duration{}) throw std::runtime_error("the window could not be opened");
  }

  Figure ReadTime() const {
    char note[120];
    std::snprintf(note, sizeof note, "%zu sendings; pauses of %.2f s in all", sendings, paused);
    return {.Name = "read of the restore window",
            .In = seconds,
            .Measured = SecondsBetween(readBegin, readEnd),
            .Floor = floor,
            .FloorName = "line, radio and pauses",
            .By = Judged::Ratio,
            .Limit = 1.10,
            .Note = note};
  }
  double ReadShare() const { return ShareBetween(readBegin, readEnd); }
  double IdleRate() const { return RateBetween(idleBegin, idleEnd); }

 private:
  void AfterRead(const std::function<void()>& act) {
    auto* timer = new QTimer(&owner);
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, act] {
      auto* form = static_cast<frmRestore*>(desk.Shown("frmRestore"));
      if (form == nullptr || !form->ReadIdle || form->ReadPending) return;
      timer->stop();
      act();
    });
    timer->start(look);
  }

  void ReadOnce() {
    desk.RestorePort().Forget();
    desk.RestorePort().OnOutput = [this] { pausedBefore.push_back(desk.Loop().Paused()); };
    atBegin = desk.Loop().Paused();
    readBegin = Now();
    static_cast<frmRestore*>(desk.Shown("frmRestore"))->tbr_Refresh.Click();
    AfterRead([this] { NoteRead(); });
  }

  void NoteRead() {
    readEnd = Now();
    desk.RestorePort().OnOutput = nullptr;
    pausedBefore.push_back(desk.Loop().Paused());
    const auto& exchanges = desk.RestorePort().Exchanges();
    sendings = exchanges.size();
    paused = SecondsOf(pausedBefore.back() - atBegin);
    floor = SecondsOf(pausedBefore.front() - atBegin);
    for (std::size_t i = 0; i < exchanges.size(); ++i) {
      floor += std::max(SecondsOf(pausedBefore[i + 1] - pausedBefore[i]),
                        LineTime(exchanges[i], baud, thinkTime));
    }
    After(settlingTime, owner, [this] { idleBegin = Now(); });
    After(settlingTime + idleTime, owner, [this] {
      idleEnd = Now();
      static_cast<frmRestore*>(desk.Shown("frmRestore"))->CloseButton.Click();
    });
  }

  static double SecondsOf(Duration time) { return static_cast<double>(time.count()) / 1e6; }

  Desk& desk;
  QObject owner;
  std::vector<Duration> pausedBefore;  // each sending
  Duration atBegin{};
  Moment readBegin, readEnd, idleBegin, idleEnd;
  std::size_t sendings = 0;
  double paused = 0;  // s
  double floor = 0;   // s
};

}  // namespace

std::vector<Figure> MeasureRestoreWindow(Surroundings& surroundings) {
  const double idleRate = surroundings.IdleRate();
  const RadioProcess radio(surroundings, {"--mode", "M", "--pace", std::to_string(baud),
                                          "--think-ms", std::to_string(thinkTime)});
  Desk desk(surroundings, radio.Device());
  desk.Connect();
  Visit visit(desk);
  visit.Make();
  return {visit.ReadTime(),
          {.Name = "processor, that read",
           .In = processorShare,
           .Measured = visit.ReadShare(),
           .Floor = idleRate / 10,
           .FloorName = idleFloorName,
           .Limit = 3},
          {.Name = "processor, restore window idle",
           .In = processorRate,
           .Measured = visit.IdleRate(),
           .Floor = idleRate,
           .FloorName = idleFloorName,
           .Limit = 2}};
}

}  // namespace quillmark::bench
