#include "radio/main_timer.h"

#include <cstdio>
#include <string>
#include <utility>

#include "link/serial_failure.h"

namespace quillmark {

namespace {

constexpr Duration keepAliveInterval = Seconds(240);
constexpr int keepAliveLimit = 8;  // carriage returns before the first whole read

// "hh:nn:ss" of a time of day, or of a stretch of time less whole days.
std::string ClockText(std::int64_t seconds) {
  constexpr std::int64_t day = 86400;
  const auto inDay = static_cast<int>((seconds % day + day) % day);
  char text[16];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", inDay / 3600, inDay / 60 % 60, inDay % 60);
  return text;
}

}  // namespace

MainTimer::MainTimer(Platform& machine, Session& shared, frmOrvalent& window, Connection& link,
                     ReadCycle& cycle)
    : LineHolders(window.LineHolders),
      platform(machine),
      session(shared),
      main(window),
      connection(link),
      readCycle(cycle) {}

bool MainTimer::LineHeld() const {
  return main.DirectPortMode || LineHolders > 0 || main.SecretWindows > 0 ||
         connection.Connecting();
}

void MainTimer::Timer1_Timer() {
  ticking = true;
  struct Ended {
    bool& flag;
    ~Ended() { flag = false; }
  };
  {
    const Ended ended{ticking};
    WithLinkErrors(platform.Dialogs, [this] { OneSecond(); });
  }
  if (deferred) platform.Events.StartTimer(*this, Milliseconds(1));
}

MainTimer::~MainTimer() { platform.Events.StopTimer(*this); }

void MainTimer::WhenFree(const Control& entry, std::function<void()> act) {
  AfterTick([this, &entry, act = std::move(act)] {
    connection.AfterConnect([&entry, act] {
      if (entry.Reachable()) act();
    });
  });
}

void MainTimer::Tick() {
  platform.Events.StopTimer(*this);
  // The end of this tick starts it again.
  if (ticking) return;
  if (const auto act = std::exchange(deferred, nullptr)) act();
}

void MainTimer::AfterTick(std::function<void()> act) {
  if (ticking) {
    deferred = std::move(act);
  } else {
    // An earlier one that is still to come would come into the middle of this one.
    deferred = nullptr;
    act();
  }
}

void MainTimer::OneSecond() {
  main.pnl_ConnectTime.Text = ClockText(platform.Events.LocalSeconds() - main.ConnectStart) + " ";
  if (session.RestoreLinkFailed) {
    session.RestoreLinkFailed = false;
    if (CloseRestoreWindow) CloseRestoreWindow();
    connection.mnuOpen_Click();
    return;
  }
  if (main.ConnectOnLaunchPending) {
    main.ConnectOnLaunchPending = false;
    connection.ConnectRadio();
  }
  if (LineHeld()) return;
  KeepAlive();
  if (platform.MSComm1.PortOpen() && session.RefreshRequested) {
    readCycle.Run();
    if (OnReadCycleDone) OnReadCycleDone();
  }
}

void MainTimer::KeepAlive() {
  if (!session.KeepAlive || !platform.MSComm1.PortOpen() ||
      platform.Events.Now() < main.NextKeepAlive) {
    return;
  }
  main.NextKeepAlive = platform.Events.Now() + keepAliveInterval;
  if (main.KeepAliveCount == keepAliveLimit) {
    session.RefreshRequested = true;
  } else {
    platform.MSComm1.Output("\r");
    ++main.KeepAliveCount;
  }
}

}  // namespace quillmark
