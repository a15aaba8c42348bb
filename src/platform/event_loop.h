#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

namespace quillmark {

// Time as the logic sees it: waits, sleeps, timers and clocks. All of the program's work runs on
// one thread, inside handlers that an event loop calls; nothing else may sleep or read a clock.
// There is a desktop loop (src/qt) and a virtual one (src/sim). The loop outlives every window.

using Duration = std::chrono::microseconds;

constexpr Duration Seconds(double seconds) {
  return std::chrono::duration_cast<Duration>(std::chrono::duration<double>(seconds));
}
constexpr Duration Milliseconds(std::int64_t ms) { return std::chrono::milliseconds(ms); }

// Thrown by every pump, wait and sleep after Quit, so that the handlers on the stack unwind. Only
// EventLoop::Deliver catches it. Not a std::exception, so that nothing else swallows it.
struct Shutdown {};

// Something that wants a tick at an interval: the Timer control.
class Ticker {
 public:
  virtual void Tick() = 0;

 protected:
  ~Ticker() = default;
};

// What runs the program: delivers events and timers, waits, and tells the time.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  // Delivers what is due; neither waits nor moves the clock on.
  virtual void Pump() = 0;
  // Delivers what is due; if nothing is, blocks until something happens or `bound` has passed.
  virtual void Wait(Duration bound) = 0;
  // Holds the thread and delivers nothing. The serial layer goes on moving bytes meanwhile.
  virtual void Sleep(Duration time) = 0;
  // No pause lasts longer, whether it is slept or delivers events. Only tests shorten pauses.
  virtual Duration LongestPause() const { return Duration::max(); }

  // Ticks `ticker` every `interval` until StopTimer. Starting a running timer starts it anew.
  // A timer never ticks inside its own handler; a tick missed meanwhile is not made up.
  // StopTimer must be called before the ticker dies.
  virtual void StartTimer(Ticker& ticker, Duration interval) = 0;
  virtual void StopTimer(Ticker& ticker) = 0;

  // Monotonic time since an arbitrary start; for waits.
  virtual Duration Now() const = 0;
  // Local date and time in whole seconds since 1970-01-01 00:00 local time; only for what is shown.
  virtual std::int64_t LocalSeconds() const = 0;
  // The same in coordinated universal time; only for what is kept.
  virtual std::int64_t UtcSeconds() const = 0;

  // Ends the program: each later pump, wait and sleep throws Shutdown.
  virtual void Quit() = 0;
  virtual bool Quitting() const = 0;

  // How a loop or a view calls the logic. Catches Shutdown; anything else that escapes `handler`
  // goes to Defect with its text. Never throws.
  void Deliver(const std::function<void()>& handler) noexcept;

 protected:
  // Shows a defect of the program to the user (or fails the test).
  virtual void Defect(const std::string& what) noexcept = 0;
};

// Waits, delivering events, until `done()` is true or `limit` has passed; tells which.
template <class Predicate>
bool WaitUntil(EventLoop& events, Duration limit, Predicate done) {
  constexpr Duration longestWait = Milliseconds(10);
  const Duration deadline = events.Now() + limit;
  while (!done()) {
    const Duration left = deadline - events.Now();
    if (left <= Duration::zero()) return false;
    events.Wait(left < longestWait ? left : longestWait);
  }
  return true;
}

}  // namespace quillmark
