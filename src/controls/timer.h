#pragma once

#include <functional>
#include <string>

#include "controls/control.h"
#include "platform/event_loop.h"

namespace quillmark {

// A window's timer: while Enabled it calls OnTick every Interval milliseconds. It never ticks
// inside its own handler, and a tick missed meanwhile is not made up. Enabling it while it is
// enabled changes nothing; a new interval starts it anew. Unloading its window silences it.
class Timer : public Control, private Ticker {
 public:
  // `intervalMs` and `enabled` are the first values of the properties.
  Timer(Form& form, std::string name, EventLoop& events, int intervalMs, bool enabled);
  ~Timer() override;

  Property<int> Interval;  // ms

  std::function<void()> OnTick;

 protected:
  void Changed() override;

 private:
  void Tick() override;

  EventLoop& events;
  bool running = false;
  int runningInterval = 0;
  bool ticking = false;
};

}  // namespace quillmark
