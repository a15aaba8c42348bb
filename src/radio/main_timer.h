#pragma once

#include <functional>

#include "app/frmOrvalent.h"
#include "link/connection.h"
#include "link/session.h"
#include "platform/platform.h"
#include "radio/read_cycle.h"

namespace quillmark {

// What happens once a second: the connect time, the connect at launch, the keep-alive, and, when it
// was asked for, a read of the radio. Everything given to it outlives it.
class MainTimer : private Ticker {
 public:
  MainTimer(Platform& platform, Session& session, frmOrvalent& main, Connection& connection,
            ReadCycle& readCycle);
  ~MainTimer();
  MainTimer(const MainTimer&) = delete;
  MainTimer& operator=(const MainTimer&) = delete;

  void Timer1_Timer();

  // Runs it now, or when the tick that is running has ended: for what must not come into the middle
  // of a read. Only the last one asked for is kept. It runs outside of the tick, so that the next
  // ones come while it is under way.
  void AfterTick(std::function<void()> act);

  // The same for what an entry of the window starts: also not in the middle of a connect, and only
  // if the entry can still be clicked then.
  void WhenFree(const Control& entry, std::function<void()> act);

  // True while something else has the line to itself, so that no keep-alive and no read may start.
  // Windows that need that count themselves in and out of LineHolders.
  bool LineHeld() const;
  int& LineHolders;

  // Closes the store and restore window when it has lost the radio.
  std::function<void()> CloseRestoreWindow;
  // Told after each read cycle that ran to its end.
  std::function<void()> OnReadCycleDone;

 private:
  // When what was put off is due.
  void Tick() override;
  void OneSecond();
  void KeepAlive();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  ReadCycle& readCycle;
  bool ticking = false;
  std::function<void()> deferred;
};

}  // namespace quillmark
