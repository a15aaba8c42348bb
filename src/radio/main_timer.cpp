#include "radio/main_timer.h"

#include <cstdint>
#include <cstdio>
#include <string>

#include "link/serial_failure.h"

namespace quillmark {

namespace {

constexpr Duration keepAliveInterval = Seconds(240);
constexpr Duration echoInterval = Seconds(10);
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
                     ReadCycle& cycle, Conversation& conversation)
    : platform(machine),
      session(shared),
      main(window),
      connection(link),
      readCycle(cycle),
      radio(conversation) {}

void MainTimer::Timer1_Timer() {
  WithLinkErrors(platform.Dialogs, [this] { OneSecond(); });
}

void MainTimer::OneSecond() {
  main.pnl_ConnectTime.Text = ClockText(platform.Events.LocalSeconds() - main.ConnectStart) + " ";
  if (session.RestoreLinkFailed) {
    session.DropReconnect();
    if (CloseRestoreWindow) CloseRestoreWindow();
    connection.mnuOpen_Click();
    return;
  }
  if (main.ConnectOnLaunchPending) {
    main.ConnectOnLaunchPending = false;
    connection.ConnectRadio();
  }
  // What the user has asked for goes first.
  if (!radio.Turns.Idle() || connection.Connecting()) return;
  BringEchoBack();
  KeepAlive();
  if (platform.MSComm1.PortOpen() && session.RefreshRequested) {
    const LineTurns::Turn turn(radio.Turns);
    readCycle.Run();
    if (OnReadCycleDone) OnReadCycleDone();
  }
}

// The radio did not say that it has switched its echo on.
void MainTimer::BringEchoBack() {
  if (!main.EchoIsOff || !radio.Open() || platform.Events.Now() < nextEchoTry) return;
  nextEchoTry = platform.Events.Now() + echoInterval;
  const LineTurns::Turn turn(radio.Turns);
  radio.SwitchEcho(true);
}

void MainTimer::KeepAlive() {
  if (!session.KeepAlive || !platform.MSComm1.PortOpen() ||
      platform.Events.Now() < main.NextKeepAlive) {
    return;
  }
  main.NextKeepAlive = platform.Events.Now() + keepAliveInterval;
  if (main.KeepAliveCount == keepAliveLimit) {
    session.AskForRead();
  } else {
    radio.Say("");
    ++main.KeepAliveCount;
  }
}

}  // namespace quillmark
