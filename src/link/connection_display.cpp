#include <initializer_list>
#include <string>

#include "link/connection.h"
#include "platform/utilities.h"

// What the main window shows of the link, and which of its controls work with it.

namespace quillmark {

void Connection::ShowPortClosed() {
  main.tbr_Connect.Enabled = true;
  main.tbr_Disconnect.Enabled = false;
  ShowLamp(false);
  main.pnl_Settings.Text = "Settings: ";
  StopConnectTimer();
}

void Connection::ShowConnected() {
  main.tbr_TransmitTextFile.Enabled = true;
  main.tbr_Login.Enabled = true;
  EnableRadioMenus(true);
  ShowLamp(true);
  EnableRadioActions();
  if (OnConnected) OnConnected();
}

void Connection::ShowWaking(int dots) {
  const std::string text(static_cast<std::size_t>(dots), '.');
  main.txtTerm.Text = "Connecting" + text;
  main.pnl_Status.Text = "Status: Connecting...." + text;
}

void Connection::ShowDisconnected() {
  // What waits for the line was meant for the radio that is gone.
  radio.Restart();
  radio.Turns.Forget();
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
  if (OnDisconnected) OnDisconnected();
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
    if (preset.Tag() != main.EmptyTag) preset.Enabled = true;
  }
  UpdateSavePresetEnabled(main);
}

void Connection::StartConnectTimer() {
  main.ConnectStart = platform.Events.LocalSeconds();
  main.pnl_ConnectTime.Text = "00:00:00 ";
  main.Timer1.Enabled = true;
}

void Connection::ShowConnectTime() {
  main.pnl_ConnectTime.Text = ClockText(platform.Events.LocalSeconds() - main.ConnectStart) + " ";
}

void Connection::StopConnectTimer() {
  main.Timer1.Enabled = false;
  main.pnl_ConnectTime.Text = "";
}

void Connection::Timer2_Timer() {
  if (platform.MSComm1.PortOpen()) main.pnl_Status.Text = "Status: ";
  main.Timer2.Enabled = false;
}

}  // namespace quillmark
