#include "link/connection.h"

#include <initializer_list>
#include <string>
#include <utility>

#include "config/presets.h"
#include "link/echo.h"
#include "link/serial_failure.h"
#include "prefs/utilities.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int wakeRounds = 30;
constexpr int pumpsBeforeConnect = 11;
constexpr Duration keepAliveInterval = Seconds(240);

// Holds a flag up for the length of a block.
class Raised {
 public:
  explicit Raised(bool& flag) : flag(flag) { flag = true; }
  ~Raised() { flag = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag;
};

}  // namespace

Connection::Connection(Platform& machine, Session& shared, frmOrvalent& window)
    : platform(machine), session(shared), main(window) {}

// A second connect in the middle of one would wake the radio under the first one's feet.
void Connection::ConnectRadio() {
  if (connecting) return;
  {
    const Raised underWay(connecting);
    WithLinkErrors(platform.Dialogs, [this] { Connect(); });
  }
  RunDeferred();
}

void Connection::mnuOpen_Click() {
  if (connecting) return;
  {
    const Raised underWay(connecting);
    Open();
  }
  RunDeferred();
}

void Connection::AfterConnect(std::function<void()> act) {
  deferred = std::move(act);
  if (!connecting) RunDeferred();
}

void Connection::RunDeferred() {
  if (const auto act = std::exchange(deferred, nullptr)) act();
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
  main.SecretReplies = 0;
  try {
    OpenAndWake();
  } catch (const SerialError& error) {
    if (error.Number == SerialError::PortNotAvailable) {
      main.NotConnected = true;
      platform.Dialogs.Message(
          {"The selected COM port is not available. Please select another port.", "Error",
           Icon::Exclamation, Buttons::Ok, error.Details});
      DisconnectRadio();
      return;
    }
    // A port that vanished has its own notice on the way; once that has come there is no more to
    // say.
    platform.Events.Pump();
    if (!main.NotConnected) ShowLinkError(platform.Dialogs, error);
  }
}

void Connection::OpenAndWake() {
  SerialPort& port = platform.MSComm1;
  if (port.PortOpen()) SendClos();
  main.EchoIsOff = false;
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
  if (EndsWithAnyCase(session.RxBuffer, "SETUP>")) port.Output("QUIT\r");
  ResetPort();
  ShowConnected();
  AwaitPrompt();
}

void Connection::ShowPortClosed() {
  main.tbr_Connect.Enabled = true;
  main.tbr_Disconnect.Enabled = false;
  ShowLamp(false);
  main.pnl_Settings.Text = "Settings: ";
  StopConnectTimer();
}

// Closing and opening the port throws away whatever the wake attempt has stirred up.
void Connection::ResetPort() {
  SerialPort& port = platform.MSComm1;
  main.txtTerm.Text = "";
  main.DiscardReceived = true;
  session.RxBuffer = " ";
  struct KeepAgain {
    bool& flag;
    ~KeepAgain() { flag = false; }
  } keepAgain{main.DiscardReceived};
  port.SetPortOpen(false);
  WaitMilliseconds(platform.Events, 100);
  port.SetPortOpen(true);
  WaitMilliseconds(platform.Events, 100);
  port.Output("\r");
  port.Output("OPEN\r");
  main.txtTerm.Text = "Connected";
}

void Connection::ShowConnected() {
  main.tbr_TransmitTextFile.Enabled = true;
  main.tbr_Login.Enabled = true;
  EnableRadioMenus(true);
  ShowLamp(true);
  EnableRadioActions();
}

void Connection::AwaitPrompt() {
  platform.MSComm1.Output("\r");
  main.LoginProbePending = true;
  main.DiscardReceived = false;
  main.NextKeepAlive = platform.Events.Now() + keepAliveInterval;
  StartConnectTimer();
  session.RxBuffer = " ";
  WaitUntil(platform.Events, Seconds(4),
            [this] { return Contains(session.RxBuffer, ">") || !platform.MSComm1.PortOpen(); });
  if (!platform.MSComm1.PortOpen()) return;
  if (Contains(session.RxBuffer, "LOADER>")) {
    session.RefreshRequested = false;
    platform.Dialogs.Message(
        {"ERROR - This radio needs software!\r\rUse the 'Radio Firmware Upgrade' option to upload "
         "a "
         ".s28 firmware file to the radio.\r\rVisit the Kelvor website to obtain the most recent "
         "release of firmware.",
         "Radio Error", Icon::Critical});
  } else {
    session.RefreshRequested = true;
  }
}

void Connection::WakeLink() {
  if (!platform.MSComm1.PortOpen()) platform.MSComm1.SetPortOpen(true);
  session.RxBuffer = "";
  if (main.NotConnected) {
    main.TerminalEcho = true;
    return;
  }
  main.TerminalEcho = false;
  struct EchoAgain {
    bool& flag;
    ~EchoAgain() { flag = true; }
  } echoAgain{main.TerminalEcho};
  for (int tries = 0; tries < wakeRounds; ++tries) {
    if (!WakeRound(tries)) continue;
    // The dots have told their tale.
    if (!main.ConnectCancelled) main.Timer2.Enabled = true;
    return;
  }
  DisconnectRadio();
  main.txtTerm.Text = "Error. Please reconnect.";
  main.pnl_Status.Text = "Status: Error. Please reconnect.";
  main.NotConnected = true;
}

// True when the attempt is over: the radio has answered, or the user has cancelled.
bool Connection::WakeRound(int tries) {
  const auto cancelled = [this] {
    if (main.ConnectCancelled) main.txtTerm.Text = "Disconnected";
    return main.ConnectCancelled;
  };
  platform.Events.Pump();
  if (cancelled()) return true;
  platform.MSComm1.Output("\x1B\r\n");
  WaitMilliseconds(platform.Events, static_cast<int>(platform.Random.Next() * 701) + 400);
  for (int inner = 0; inner < 4; ++inner) {
    if (cancelled()) return true;
    platform.MSComm1.Output("\r\r");
    WaitMilliseconds(platform.Events, 100);
    const std::string dots(static_cast<std::size_t>(tries + inner), '.');
    main.txtTerm.Text = "Connecting" + dots;
    main.pnl_Status.Text = "Status: Connecting...." + dots;
  }
  return EndsWithAnyCase(session.RxBuffer, ">");
}

void Connection::SendClos() {
  // A radio must not be left without its echo.
  if (main.EchoIsOff) SwitchEcho(platform.MSComm1, main, true);
  platform.MSComm1.Output("CLOS\r");
  main.txtTerm.Text = main.txtTerm.Text() +
                      "*** CLOS command sent to the radio before disabling the COMM port. ***\r\n";
  platform.MSComm1.SetPortOpen(false);
}

void Connection::DisconnectRadio() {
  StopConnectTimer();
  StopPortTimeout();
  main.ConnectCancelled = true;
  // Nobody waits for that reconnect any more; it would come on top of the next one.
  session.RestoreLinkFailed = false;
  main.txtTerm.Text = "";
  try {
    if (platform.MSComm1.PortOpen()) SendClos();
  } catch (const SerialError& error) {
    platform.Dialogs.Message(
        {error.what(), ProgramTitle, Icon::Exclamation, Buttons::Ok, error.Details});
  }
  ShowDisconnected();
  main.txtTerm.Text = main.txtTerm.Text() + "Disconnected";
  main.pnl_Status.Text = "Status: ";
  main.DirectPortMode = false;
  main.NotConnected = true;
}

void Connection::ShowDisconnected() {
  for (Control* control : std::initializer_list<Control*>{
           &main.tbr_TransmitTextFile, &main.tbr_Disconnect, &main.tbr_Login, &main.tbr_Logout}) {
    control->Enabled = false;
  }
  main.tbr_Connect.Enabled = true;
  main.pnl_Settings.Text = "Settings: ";
  main.mnuOpen.Checked = false;
  ShowLamp(false);
  EnableRadioMenus(false);
  DisableRadioActions();
}

void Connection::LogoutRadio() {
  WithLinkErrors(platform.Dialogs, [this] {
    platform.MSComm1.Output("PASS NONE\r");
    main.tbr_Login.Enabled = true;
    main.tbr_Logout.Enabled = false;
    main.txtTerm.Text = "*** LOGGED OUT ***";
  });
}

void Connection::ButtonRefresh_Click() {
  if (platform.MSComm1.PortOpen()) {
    session.RefreshRequested = true;
  } else {
    ConnectRadio();
  }
}

void Connection::ShowLamp(bool connected) {
  main.imgConnected.Visible = connected;
  main.imgNotConnected.Visible = !connected;
}

void Connection::EnableRadioMenus(bool enabled) {
  for (Control* menu : std::initializer_list<Control*>{
           &main.mnuSendText, &main.mnuAccessCode, &main.mnuEncryptCode, &main.mnuSetupMode,
           &main.mnuConfigRestore, &main.mnuRadioPassSub, &main.mnuSetPass}) {
    menu->Enabled = enabled;
  }
}

void Connection::EnableQuickTasks(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{
           &main.cmdSaveToFile, &main.cmdSaveToPreset, &main.cmdProgramFromFile, &main.cmdMaster,
           &main.cmdRemote, &main.cmdRepeater, &main.cmdSubRemote, &main.cmbBaud, &main.txtNewADDR,
           &main.sldPwr, &main.cmdPrint}) {
    control->Enabled = enabled;
  }
}

void Connection::DisableRadioActions() {
  EnableQuickTasks(false);
  for (Button& preset : main.cmdPre) preset.Enabled = false;
}

void Connection::EnableRadioActions() {
  EnableQuickTasks(true);
  for (Button& preset : main.cmdPre) {
    if (preset.Tag() != "EMPTY") preset.Enabled = true;
  }
  UpdateSavePresetEnabled(main, platform.Files);
}

void Connection::StartConnectTimer() {
  main.ConnectStart = platform.Events.LocalSeconds();
  main.pnl_ConnectTime.Text = "00:00:00 ";
  main.Timer1.Enabled = true;
}

void Connection::StopConnectTimer() {
  main.Timer1.Enabled = false;
  main.pnl_ConnectTime.Text = "";
}

void Connection::Timer2_Timer() {
  if (platform.MSComm1.PortOpen()) main.pnl_Status.Text = "Status: ";
  main.Timer2.Enabled = false;
}

void Connection::tmrPortTO_Timer() {
  main.tmrPortTO.Enabled = false;
  main.PortTimedOut = true;
  platform.Dialogs.Message(
      {"Radio Communication Error.\r\n\r\nPlease Reconnect.\r\n\r\nIf there is still a problem, "
       "please "
       "check all cabling and the power supply.",
       "Radio Communications Error"});
  DisableRadioActions();
}

}  // namespace quillmark
