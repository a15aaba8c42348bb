#include "app/main_menus.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "text/path_text.h"

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

// "&3 north ridge.txt": the digit is the key. An "&" of the name's own is doubled.
std::string NumberedCaption(std::size_t place, const std::string& name) {
  std::string caption = "&" + std::to_string(place + 1) + " ";
  for (const char c : name) {
    caption += c;
    if (c == '&') caption += c;
  }
  return caption;
}

}  // namespace

MainMenus::MainMenus(Form& form)
    : mnuFile(form, &form, "mnuFile", "&File"),
      mnuPort(form, &form, "mnuPort", "Serial &Port"),
      mnuSpecial(form, &form, "mnuSpecial", "&Special"),
      mnuRadioPassSub(form, &mnuSpecial, "mnuRadioPassSub", "Radio Passwords..."),
      mnuPreset(form, &form, "mnuPreset", "Preset"),
      mnuRecent(form, &mnuFile, "mnuRecent", "Rece&nt Configurations"),
      mnuOpenPreset(form, &mnuFile, "mnuOpenPreset", "Open Prese&t"),
      mnuHelp(form, &form, "mnuHelp", "&Help"),
      mnuOpenConfig(form, &mnuFile, "mnuOpenConfig", "Open Confi&guration..."),
      mnuOpenLog(form, &mnuFile, "mnuOpenLog", "&Open Log File..."),
      mnuCloseLog(form, &mnuFile, "mnuCloseLog", "&Close Log File"),
      mnuSendText(form, &mnuFile, "mnuSendText", "&Radio Firmware Upgrade..."),
      mnuHistory(form, &mnuFile, "mnuHistory", "Radio &History..."),
      mnuRestoreBefore(form, &mnuFile, "mnuRestoreBefore", "Restore &What Was There..."),
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
      mnuFind(form, &form, "mnuFind", "&Find..."),
      mnuFilterFactory(form, &form, "mnuFilterFactory", "&Changed From Factory"),
      mnuFilterCopy(form, &form, "mnuFilterCopy", "Changed Since the &Last Copy"),
      mnuAbout(form, &form, "mnuAbout", "&About"),
      mnuManual(form, &mnuHelp, "mnuManual", "&Manual"),
      mnuKeyboard(form, &mnuHelp, "mnuKeyboard", "&Keyboard"),
      mnuVersions(form, &mnuHelp, "mnuVersions", "&Versions..."),
      mnuRecentFile{{{form, &mnuRecent, "mnuRecentFile_0"},
                     {form, &mnuRecent, "mnuRecentFile_1"},
                     {form, &mnuRecent, "mnuRecentFile_2"},
                     {form, &mnuRecent, "mnuRecentFile_3"},
                     {form, &mnuRecent, "mnuRecentFile_4"},
                     {form, &mnuRecent, "mnuRecentFile_5"},
                     {form, &mnuRecent, "mnuRecentFile_6"},
                     {form, &mnuRecent, "mnuRecentFile_7"}}},
      mnuPresetFile{{{form, &mnuOpenPreset, "mnuPresetFile_0"},
                     {form, &mnuOpenPreset, "mnuPresetFile_1"},
                     {form, &mnuOpenPreset, "mnuPresetFile_2"},
                     {form, &mnuOpenPreset, "mnuPresetFile_3"},
                     {form, &mnuOpenPreset, "mnuPresetFile_4"},
                     {form, &mnuOpenPreset, "mnuPresetFile_5"}}},
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
  ShowRecent({});
  for (std::size_t slot = 0; slot < MostPresets; ++slot) ShowPreset(slot, "");
  // Until a radio is connected and a log is open.
  for (Control* control : std::initializer_list<Control*>{
           &tbr_CloseLogFile, &tbr_Disconnect, &tbr_TransmitTextFile, &tbr_Login, &tbr_Logout,
           &mnuCloseLog, &mnuSendText, &mnuRestoreBefore, &mnuAccessCode, &mnuEncryptCode,
           &mnuSetupMode, &mnuConfigRestore, &mnuRadioPassSub, &mnuSetPass}) {
    control->Enabled = false;
  }
}

void MainMenus::ShowRecent(const std::vector<std::filesystem::path>& files) {
  mnuRecent.Enabled = !files.empty();
  for (std::size_t place = 0; place < mnuRecentFile.size(); ++place) {
    MenuItem& entry = mnuRecentFile[place];
    entry.Visible = place < files.size();
    const std::filesystem::path file = entry.Visible() ? files[place] : "(Empty)";
    entry.Text = NumberedCaption(place, PathText(file.filename()));
    entry.ToolTip = PathText(file);
  }
}

void MainMenus::ShowPreset(std::size_t slot, const std::string& caption) {
  mnuPresetFile[slot].Visible = !caption.empty();
  mnuPresetFile[slot].Text = NumberedCaption(slot, caption.empty() ? "(Empty)" : caption);
  mnuOpenPreset.Enabled =
      std::ranges::any_of(mnuPresetFile, [](const MenuItem& entry) { return entry.Visible(); });
}

}  // namespace quillmark
