#include "controls/timer.h"

#include <string>
#include <utility>

#include "controls/form.h"
#include "text/at_end.h"

namespace quillmark {

Timer::Timer(Form& form, std::string name, EventLoop& events, int intervalMs, bool enabled)
    : Control(form, &form, std::move(name)), Interval(*this, intervalMs), events(events) {
  Enabled = false;
  Enabled = enabled;
}

Timer::~Timer() {
  if (running) events.StopTimer(*this);
}

void Timer::Changed() {
  if (running && (!Enabled() || Interval() != runningInterval)) {
    events.StopTimer(*this);
    running = false;
  }
  if (Enabled() && !running) {
    running = true;
    runningInterval = Interval();
    events.StartTimer(*this, Milliseconds(runningInterval));
  }
  Control::Changed();
}

void Timer::Tick() {
  if (ticking || !Owner().Loaded()) return;
  const auto alive = Owner().weak_from_this().lock();
  const auto inside = Raised(ticking);
  if (OnTick) OnTick();
}

}  // namespace quillmark
