#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/event_loop.h"

namespace quillmark::sim {

// Something that goes on by itself as time passes, whether events are delivered or not: a line.
class TimeSource {
 public:
  // When it next has something to do.
  virtual std::optional<Duration> NextEvent() const = 0;
  // Plays everything up to then; it may post events.
  virtual void Advance(Duration now) = 0;

 protected:
  ~TimeSource() = default;
};

// The event loop of the virtual bench: a queue of due events and a clock that stands still but for
// waits and sleeps. The same acts give the same events at the same times in every run, and no real
// time passes.
class VirtualLoop : public EventLoop {
 public:
  void Pump() override;
  void Wait(Duration bound) override;
  void Sleep(Duration time) override;
  void StartTimer(Ticker& ticker, Duration interval) override;
  void StopTimer(Ticker& ticker) override;
  Duration Now() const override { return now; }
  std::int64_t LocalSeconds() const override;
  std::int64_t UtcSeconds() const override { return LocalSeconds() - UtcOffset; }
  void Quit() override { quitting = true; }
  bool Quitting() const override { return quitting; }

  // Runs `event` at `at`, or at the first pump after it, behind what was due before.
  void At(Duration at, std::function<void()> event);
  void Post(std::function<void()> event) { At(now, std::move(event)); }
  // The source outlives the loop or is removed.
  void AddSource(TimeSource& source) { sources.push_back(&source); }
  void RemoveSource(TimeSource& source) { std::erase(sources, &source); }

  // For a second start on the same bench.
  void Reopen() { quitting = false; }

  // Local date and time at the start, in seconds since 1970-01-01 00:00 local time.
  std::int64_t StartOfDay = 1'767'254'400;  // 2026-01-01 08:00:00
  std::int64_t UtcOffset = 3600;            // of local time, in seconds
  // Called with what escaped a handler.
  std::function<void(const std::string&)> OnDefect;

 protected:
  void Defect(const std::string& what) noexcept override;

 private:
  using Place = std::pair<Duration, std::uint64_t>;  // when, and in which order
  struct Event {
    std::function<void()> Run;
    Ticker* Timer = nullptr;
    Duration Interval{};
  };

  void AdvanceSources();
  // Delivers what is due at the present time and was there before; true when anything was.
  bool DeliverDue();
  Duration NextTime() const;
  void Insert(Duration at, Event event);

  std::map<Place, Event> queue;
  std::map<Ticker*, Place> timers;
  std::vector<TimeSource*> sources;
  Duration now{};
  std::uint64_t lastOrder = 0;
  bool quitting = false;
};

}  // namespace quillmark::sim
