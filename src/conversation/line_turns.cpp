#include "conversation/line_turns.h"

#include <algorithm>
#include <utility>

#include "text/at_end.h"

namespace quillmark {

namespace {
constexpr Duration soon = Milliseconds(1);
}

LineTurns::LineTurns(EventLoop& loop, const LinkState& state) : events(loop), link(state) {}

LineTurns::~LineTurns() { events.StopTimer(*this); }

LineTurns::Turn::Turn(LineTurns& all, For purpose) : turns(all), what(purpose), alive(all.alive) {
  ++turns.turnsTaken;
  if (what == For::Secret) ++turns.secretTurns;
}

LineTurns::Turn::~Turn() {
  // A window may outlive the application that has opened it.
  if (alive.expired()) return;
  --turns.turnsTaken;
  if (what == For::Secret) --turns.secretTurns;
  turns.Release();
}

void LineTurns::WhenFree(std::function<void()> act) {
  if (Idle()) {
    act();
    return;
  }
  waiting.push_back({nullptr, std::move(act)});
}

void LineTurns::WhenFree(const Control& entry, std::function<void()> act) {
  if (Idle()) {
    act();
    return;
  }
  const bool there = std::any_of(waiting.begin(), waiting.end(),
                                 [&](const Act& each) { return each.Entry == &entry; });
  if (!there) waiting.push_back({&entry, std::move(act)});
}

void LineTurns::Forget() { waiting.clear(); }

// Later, from a timer: the one that had the line has not returned yet.
void LineTurns::Release() {
  if (Free() && !running && !waiting.empty()) events.StartTimer(*this, soon);
}

void LineTurns::Tick() {
  events.StopTimer(*this);
  if (Free() && !running && !waiting.empty()) RunNext();
}

void LineTurns::RunNext() {
  const Act next = std::move(waiting.front());
  waiting.pop_front();
  running = true;
  const AtEnd over([this] {
    running = false;
    Release();
  });
  // Whether it is visible does not count: the user may have opened another view meanwhile.
  if (next.Entry == nullptr || next.Entry->Enabled()) next.Run();
}

}  // namespace quillmark
