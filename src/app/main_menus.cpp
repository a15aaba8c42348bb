#include "app/main_menus.h"

#include <initializer_list>

namespace quillmark {

namespace {

void SetToolTips(MainMenus& menus) {
  menus.tbr_OpenLogFile.ToolTip = "Open log file...";
  menus.tbr_CloseLogFile.ToolTip = "Close log file";
  menus.tbr_Connect.ToolTip = "Connect...";
  menus.tbr_Disconnect.ToolTip = "Disconnect...";
  menus.tbr_Properties.ToolTip = "Setup...";
  menus.tbr_TransmitTextFile.ToolTip = "Upgrade radio firmware...";
  menus.tbr_Login.ToolTip = "Login with a radio password...";
  menus.tbr_Logout.ToolTip = "Logout of the radio to prevent unauthorized changes...";
  menus.tbr_Terminal.ToolTip = "Show/Hide the Terminal Screen";
  menus.pnl_Status.ToolTip = "Communications Port Status";
  menus.pnl_Settings.ToolTip = "Communications Port Settings";
  menus.pnl_ConnectTime.ToolTip = "Connect Time";
  menus.barRun.ToolTip = "Settings done and to do";
}

}  // namespace

MainMenus::MainMenus(Form& form)
    : mnuFile(form, &form, "mnuFile", "&File"),
      mnuPort(form, &form, "mnuPort", "Serial &Port"),
      mnuSpecial(form, &form, "mnuSpecial", "&Special"),
      mnuRadioPassSub(form, &mnuSpecial, "mnuRadioPassSub", "Radio Passwords..."),
      mnuPreset(form, &form, "mnuPreset", "Preset"),
      mnuOpenLog(form, &mnuFile, "mnuOpenLog", "&Open Log File..."),
      mnuCloseLog(form, &mnuFile, "mnuCloseLog", "&Close Log File"),
      mnuSendText(form, &mnuFile, "mnuSendText", "&Radio Firmware Upgrade..."),
      mnuFileExit(form, &mnuFile, "mnuFileExit", "E&xit"),
      mnuOpen(form, &mnuPort, "mnuOpen", "Port &Open"),
      mnuProperties(form, &mnuPort, "mnuProperties", "Setup..."),
      mnuPreferences(form, &mnuSpecial, "mnuPreferences", "Application Preferences..."),
      mnuSetPass(form, &mnuRadioPassSub, "mnuSetPass", "Set Radio's Customer Password..."),
      mnuAccessCode(form, &mnuRadioPassSub, "mnuAccessCode", "Enter Radio Password..."),
      mnuEncryptCode(form, &mnuSpecial, "mnuEncryptCode", "Enter Encryption Code..."),
      mnuSetupMode(form, &mnuSpecial, "mnuSetupMode", "Enter Setup Mode..."),
      mnuConfigRestore(form, &mnuSpecial, "mnuConfigRestore",
                       "Open Configuration Store/Restore Window..."),
      mnuAbout(form, &form, "mnuAbout", "&About"),
      mnuPresetView(form, &mnuPreset, "mnuPresetView", "View"),
      mnuPresetDelete(form, &mnuPreset, "mnuPresetDelete", "Delete"),
      mnuPresetRename(form, &mnuPreset, "mnuPresetRename", "Rename This Button"),
      mnuPresetEditDesc(form, &mnuPreset, "mnuPresetEditDesc", "Edit Long Description"),
      tbrToolBar(form, &form, "tbrToolBar"),
      tbr_OpenLogFile(form, &tbrToolBar, "tbr_OpenLogFile", "Open log file..."),
      tbr_CloseLogFile(form, &tbrToolBar, "tbr_CloseLogFile", "Close log file"),
      tbr_Connect(form, &tbrToolBar, "tbr_Connect", "Connect..."),
      tbr_Disconnect(form, &tbrToolBar, "tbr_Disconnect", "Disconnect..."),
      tbr_Properties(form, &tbrToolBar, "tbr_Properties", "Setup..."),
      tbr_TransmitTextFile(form, &tbrToolBar, "tbr_TransmitTextFile", "Transmit Text File..."),
      tbr_Login(form, &tbrToolBar, "tbr_Login", "Login..."),
      tbr_Logout(form, &tbrToolBar, "tbr_Logout", "Logout..."),
      tbr_Terminal(form, &tbrToolBar, "tbr_Terminal", "Terminal"),
      sbrStatus(form, &form, "sbrStatus"),
      pnl_Status(form, &sbrStatus, "pnl_Status", "Status: "),
      pnl_Settings(form, &sbrStatus, "pnl_Settings", "Settings: "),
      pnl_ConnectTime(form, &sbrStatus, "pnl_ConnectTime"),
      barRun(form, &sbrStatus, "barRun", 0, 1, 0) {
  SetToolTips(*this);
  barRun.Visible = false;
  // Until a radio is connected and a log is open.
  for (Control* control : std::initializer_list<Control*>{
           &tbr_CloseLogFile, &tbr_Disconnect, &tbr_TransmitTextFile, &tbr_Login, &tbr_Logout,
           &mnuCloseLog, &mnuSendText, &mnuAccessCode, &mnuEncryptCode, &mnuSetupMode,
           &mnuConfigRestore, &mnuRadioPassSub, &mnuSetPass}) {
    control->Enabled = false;
  }
}

}  // namespace quillmark
