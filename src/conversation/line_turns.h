#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "controls/control.h"
#include "platform/event_loop.h"
#include "session/session.h"

namespace quillmark {

// Whose turn it is on the line. A read, a connect, a probe, a single setting or a long run takes a
// turn for its length; what users ask for meanwhile waits and runs, in the order of their acts,
// when nobody has the line any more.
class LineTurns : private Ticker {
 public:
  LineTurns(EventLoop& events, const LinkState& link);
  ~LineTurns();
  LineTurns(const LineTurns&) = delete;
  LineTurns& operator=(const LineTurns&) = delete;

  // What a turn is for.
  enum class For { Talk, Secret };

  // Holds the line for the length of a block. Turns may stand within each other: a reconnect at the
  // end of a run, say. While one is for a secret, no key that is typed reaches the line.
  class Turn {
   public:
    explicit Turn(LineTurns& turns, For what = For::Talk);
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

   private:
    LineTurns& turns;
    For what;
    std::weak_ptr<const bool> alive;
  };

  // Somebody has a turn.
  bool Taken() const { return turnsTaken > 0; }
  bool TakenForSecret() const { return secretTurns > 0; }
  // Nobody has the line, and no scripted run reads the port.
  bool Free() const { return !Taken() && !link.DirectPortMode; }
  // The line is free, and nobody waits for it.
  bool Idle() const { return Free() && waiting.empty(); }

  // Runs it now, or when the line is free and all that was asked for earlier has run.
  void WhenFree(std::function<void()> act);
  // The same for what a control starts: only if it is still enabled then, and once, however
  // often it was clicked.
  void WhenFree(const Control& entry, std::function<void()> act);
  // Forgets what waits: the link that it was meant for is gone.
  void Forget();

 private:
  // What waits for the line.
  struct Act {
    const Control* Entry;  // that the user clicked; null: none
    std::function<void()> Run;
  };

  void Release();
  void RunNext();
  // When a turn has ended and something waits.
  void Tick() override;

  EventLoop& events;
  const LinkState& link;
  int turnsTaken = 0;
  int secretTurns = 0;  // of them
  std::shared_ptr<const bool> alive = std::make_shared<const bool>(true);
  bool running = false;  // an act that waited is at work
  std::deque<Act> waiting;
};

}  // namespace quillmark
