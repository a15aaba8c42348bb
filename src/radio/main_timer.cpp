#include "radio/main_timer.h"

#include "link/serial_failure.h"

namespace quillmark {

namespace {

constexpr Duration keepAliveInterval = Seconds(240);
constexpr Duration echoInterval = Seconds(10);
constexpr int keepAliveLimit = 8;  // carriage returns before the first whole read

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
  connection.ShowConnectTime();
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
    if (readCycle.Run() && OnRadioRead) OnRadioRead();
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
