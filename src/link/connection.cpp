#include "link/connection.h"

#include <string>

#include "conversation/wake.h"
#include "link/serial_failure.h"
#include "platform/utilities.h"
#include "text/at_end.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int pumpsBeforeConnect = 11;
constexpr Duration keepAliveInterval = Seconds(240);

}  // namespace

Connection::Connection(Platform& machine, Session& shared, frmOrvalent& window,
                       Conversation& conversation)
    : platform(machine), session(shared), main(window), radio(conversation) {}

// A second connect during the first one would disturb it.
void Connection::ConnectRadio() {
  if (connecting) return;
  const auto underWay = Raised(connecting);
  const LineTurns::Turn turn(radio.Turns);
  WithLinkErrors(platform.Dialogs, [this] { Connect(); });
}

void Connection::mnuOpen_Click() {
  if (connecting) return;
  const auto underWay = Raised(connecting);
  const LineTurns::Turn turn(radio.Turns);
  Open();
}

void Connection::Connect() {
  for (int pass = 0; pass < pumpsBeforeConnect; ++pass) platform.Events.Pump();
  main.NotConnected = false;
  if (!platform.MSComm1.PortOpen()) Open();
  if (main.NotConnected || !platform.MSComm1.PortOpen()) return;
  main.tbr_Disconnect.Enabled = true;
  main.tbr_Connect.Enabled = false;
  ShowLamp(true);
  EnableRadioActions();
  StartConnectTimer();
}

void Connection::Open() {
  main.ConnectCancelled = false;
  main.NotConnected = false;
  for (Notice* notice : {&main.ConnectFailed, &main.PortBack}) notice->Drop();
  main.FirstSteps.Visible = false;
  try {
    OpenAndWake();
  } catch (const SerialError& error) {
    if (error.Number == SerialError::PortNotAvailable) {
      main.NotConnected = true;
      main.ConnectFailed.Tell(error.Details, [this, error] { TellNotAvailable(error); });
      TellNotAvailable(error);
      DisconnectRadio();
      return;
    }
    // A port that vanished is told by its own event. After that no second box is shown.
    platform.Events.Pump();
    if (!main.NotConnected) ShowLinkError(platform.Dialogs, error);
  }
}

void Connection::TellNotAvailable(const SerialError& error) {
  platform.Dialogs.Message(
      {.Text = "The selected COM port is not available. Please select another port.",
       .Title = "Error",
       .Symbol = Icon::Exclamation,
       .Details = error.Details});
}

void Connection::OpenAndWake() {
  SerialPort& port = platform.MSComm1;
  if (port.PortOpen()) SendClos();
  radio.BeginLink();
  port.SetPortOpen(!port.PortOpen());
  main.mnuOpen.Checked = port.PortOpen();
  if (!port.PortOpen()) {
    ShowPortClosed();
    return;
  }
  main.tbr_Connect.Enabled = false;
  main.tbr_Disconnect.Enabled = true;
  main.pnl_Settings.Text = "Settings: " + port.Settings();
  WakeLink();
  if (main.NotConnected) return;
  if (EndsWithAnyCase(session.RxBuffer, "SETUP>")) radio.Say("QUIT");
  ResetPort();
  ShowConnected();
  AwaitPrompt();
}

// Closing and opening the port drops what the radio still answers to the wake attempt.
void Connection::ResetPort() {
  SerialPort& port = platform.MSComm1;
  main.txtTerm.Text = "";
  main.DiscardReceived = true;
  radio.Prime();
  const AtEnd keepAgain([this] { main.DiscardReceived = false; });
  port.SetPortOpen(false);
  WaitMilliseconds(platform.Events, 100);
  port.SetPortOpen(true);
  WaitMilliseconds(platform.Events, 100);
  radio.Say("");
  radio.Say("OPEN");
  main.txtTerm.Text = "Connected";
}

void Connection::AwaitPrompt() {
  radio.Say("");
  main.LoginProbePending = true;
  main.DiscardReceived = false;
  main.NextKeepAlive = platform.Events.Now() + keepAliveInterval;
  StartConnectTimer();
  radio.Prime();
  radio.AwaitText(Seconds(4), [this] { return Contains(session.RxBuffer, ">"); });
  if (!platform.MSComm1.PortOpen()) return;
  if (Contains(session.RxBuffer, "LOADER>")) {
    session.DropRead();
    platform.Dialogs.Message(
        {"ERROR - This radio needs software!\r\rUse the 'Radio Firmware Upgrade' option to upload "
         "a .s28 firmware file to the radio.\r\rVisit the Kelvor website to obtain the most recent "
         "release of firmware.",
         "Radio Error", Icon::Critical, Buttons::Ok,
         "In the toolbar it is the button \"" + main.tbr_TransmitTextFile.Text() + "\"."});
  } else {
    session.AskForRead();
  }
}

void Connection::WakeLink() {
  if (!platform.MSComm1.PortOpen()) platform.MSComm1.SetPortOpen(true);
  radio.Clear();
  if (main.NotConnected) {
    main.TerminalEcho = true;
    return;
  }
  main.TerminalEcho = false;
  const AtEnd echoAgain([this] { main.TerminalEcho = true; });
  const WakeEnd end =
      WakeRadio(platform, radio,
                {.Pump = [this] { platform.Events.Pump(); },
                 .Cancelled = [this] { return main.ConnectCancelled; },
                 .Sent = [this](int round, int burst) { ShowWaking(round + burst); }});
  if (end == WakeEnd::Cancelled) main.txtTerm.Text = "Disconnected";
  // Clear the status after 2 s.
  if (end == WakeEnd::Awake && !main.ConnectCancelled) main.Timer2.Enabled = true;
  if (end != WakeEnd::NoAnswer) return;
  DisconnectRadio();
  main.txtTerm.Text = "Error. Please reconnect.";
  main.pnl_Status.Text = "Status: Error. Please reconnect.";
  main.NotConnected = true;
  main.ConnectFailed.Tell(
      "No answer from the radio on Com" + std::to_string(platform.MSComm1.CommPort()) +
      ": is it powered, is the cable right, is it the radio's diagnostic port?");
}

void Connection::SendClos() {
  radio.LeaveEchoOn();
  radio.Say("CLOS");
  main.txtTerm.Text = main.txtTerm.Text() +
                      "*** CLOS command sent to the radio before disabling the COMM port. ***\r\n";
  platform.MSComm1.SetPortOpen(false);
}

void Connection::DisconnectRadio() {
  StopConnectTimer();
  StopPortTimeout();
  main.ConnectCancelled = true;
  // The user has disconnected: the reconnect that was to follow is dropped.
  session.DropReconnect();
  main.txtTerm.Text = "";
  try {
    if (platform.MSComm1.PortOpen()) SendClos();
  } catch (const SerialError& error) {
    platform.Dialogs.Message(
        {.Text = error.what(), .Symbol = Icon::Exclamation, .Details = error.Details});
  }
  ShowDisconnected();
  main.txtTerm.Text = main.txtTerm.Text() + "Disconnected";
  main.pnl_Status.Text = "Status: ";
  main.ReleasePort();
  main.NotConnected = true;
  if (OnLinkEnded) OnLinkEnded();
}

void Connection::LogoutRadio() {
  WithLinkErrors(platform.Dialogs, [this] {
    radio.Say("PASS NONE");
    main.tbr_Login.Enabled = true;
    main.tbr_Logout.Enabled = false;
    main.txtTerm.Text = "*** LOGGED OUT ***";
    main.ShowLoggedOut();
  });
}

void Connection::ButtonRefresh_Click() {
  if (platform.MSComm1.PortOpen()) {
    session.AskForRead();
  } else {
    ConnectRadio();
  }
}

void Connection::tmrPortTO_Timer() {
  main.tmrPortTO.Enabled = false;
  main.PortTimedOut = true;
  platform.Dialogs.Message(
      {"Radio Communication Error.\r\n\r\nPlease Reconnect.\r\n\r\nIf there is still a problem, "
       "please check all cabling and the power supply.",
       "Radio Communications Error"});
  DisableRadioActions();
}

}  // namespace quillmark
