#pragma once

#include <cstdint>
#include <string>

#include "platform/event_loop.h"

namespace quillmark::bench {

// The event loop that the logic gets: the real one, with the pauses counted that the logic asks
// for.
class WatchedLoop : public EventLoop {
 public:
  explicit WatchedLoop(EventLoop& wrapped) : loop(wrapped) {}

  Duration Paused() const { return paused; }  // in all
  int Pauses() const { return pauses; }

  void Sleep(Duration time) override {
    paused += time;
    ++pauses;
    loop.Sleep(time);
  }

  void Pump() override { loop.Pump(); }
  void Wait(Duration bound) override { loop.Wait(bound); }
  Duration LongestPause() const override { return loop.LongestPause(); }
  void StartTimer(Ticker& ticker, Duration interval) override { loop.StartTimer(ticker, interval); }
  void StopTimer(Ticker& ticker) override { loop.StopTimer(ticker); }
  Duration Now() const override { return loop.Now(); }
  std::int64_t LocalSeconds() const override { return loop.LocalSeconds(); }
  std::int64_t UtcSeconds() const override { return loop.UtcSeconds(); }
  void Quit() override { loop.Quit(); }
  bool Quitting() const override { return loop.Quitting(); }

 protected:
  // Handlers are delivered by the wrapped loop, which shows their defects itself.
  void Defect(const std::string&) noexcept override { loop.Quit(); }

 private:
  EventLoop& loop;
  Duration paused{};
  int pauses = 0;
};

}  // namespace quillmark::bench
