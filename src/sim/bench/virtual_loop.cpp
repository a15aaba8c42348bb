#include "sim/bench/virtual_loop.h"

#include <algorithm>

namespace quillmark::sim {

namespace {
constexpr Duration shortestInterval = Milliseconds(1);
}

void VirtualLoop::Insert(Duration at, Event event) {
  const Place place{at, ++lastOrder};
  if (event.Timer != nullptr) timers[event.Timer] = place;
  queue.emplace(place, std::move(event));
}

void VirtualLoop::At(Duration at, std::function<void()> event) {
  Insert(std::max(at, now), {std::move(event), nullptr, {}});
}

void VirtualLoop::StartTimer(Ticker& ticker, Duration interval) {
  StopTimer(ticker);
  interval = std::max(interval, shortestInterval);
  Insert(now + interval, {{}, &ticker, interval});
}

void VirtualLoop::StopTimer(Ticker& ticker) {
  const auto at = timers.find(&ticker);
  if (at == timers.end()) return;
  queue.erase(at->second);
  timers.erase(at);
}

void VirtualLoop::AdvanceSources() {
  for (std::size_t i = 0; i < sources.size(); ++i) sources[i]->Advance(now);
}

Duration VirtualLoop::NextTime() const {
  Duration next = queue.empty() ? Duration::max() : queue.begin()->first.first;
  for (const TimeSource* source : sources) {
    if (const auto time = source->NextEvent()) next = std::min(next, *time);
  }
  return std::max(next, now);
}

bool VirtualLoop::DeliverDue() {
  AdvanceSources();
  const std::uint64_t newest = lastOrder;
  bool delivered = false;
  for (;;) {
    const auto due = std::find_if(queue.begin(), queue.end(), [&](const auto& entry) {
      return entry.first.first > now || entry.first.second <= newest;
    });
    if (due == queue.end() || due->first.first > now) return delivered;
    Event event = std::move(due->second);
    queue.erase(due);
    delivered = true;
    if (event.Timer != nullptr) {
      // Ticks missed meanwhile are not made up.
      Ticker* const ticker = event.Timer;
      const Duration missed = (now - timers[ticker].first) / event.Interval * event.Interval;
      const Duration next = timers[ticker].first + missed + event.Interval;
      Insert(next, std::move(event));
      Deliver([ticker] { ticker->Tick(); });
    } else {
      Deliver(event.Run);
    }
    if (quitting) return delivered;
  }
}

void VirtualLoop::Pump() {
  if (quitting) throw Shutdown{};
  DeliverDue();
  if (quitting) throw Shutdown{};
}

void VirtualLoop::Wait(Duration bound) {
  if (quitting) throw Shutdown{};
  const Duration end = now + bound;
  while (!DeliverDue() && now < end) {
    now = std::min(end, NextTime());
    AdvanceSources();
  }
  if (quitting) throw Shutdown{};
}

void VirtualLoop::Sleep(Duration time) {
  if (quitting) throw Shutdown{};
  now += std::max(time, Duration::zero());
  AdvanceSources();
}

std::int64_t VirtualLoop::LocalSeconds() const { return StartOfDay + now / Seconds(1); }

void VirtualLoop::Defect(const std::string& what) noexcept {
  if (OnDefect) OnDefect(what);
}

}  // namespace quillmark::sim
