#include "app/frmOrvalent.h"

#include <cstddef>

#include "text/text.h"

namespace quillmark {

namespace {

// The window as it is drawn, in twips. The rules below move things from here.
constexpr double windowWidth = 13200;
constexpr double windowHeight = 10200;
constexpr double toolbarHeight = 660;
constexpr double settingsTop = 5100;
constexpr double tabHeight = 420;

constexpr const char* firstSteps =
    "Connect the radio's diagnostic port to this computer.\r\n"
    "Choose that port under Setup... (F2); OK connects.\r\n"
    "No radio at hand? Start quillmark-radio, and this program with --port and its device.";

}  // namespace

frmOrvalent::frmOrvalent(EventLoop& events, std::span<const Setting> settings)
    : Form("frmOrvalent"),
      MainMenus(static_cast<Form&>(*this)),
      SettingsRows(static_cast<Form&>(*this), settings),
      QuickTaskControls(static_cast<Form&>(*this)),
      Notices(static_cast<Form&>(*this)),
      FindControls(static_cast<Form&>(*this)),
      txtTerm(*this, this, "txtTerm"),
      FirstSteps(*this, this, "FirstSteps", firstSteps),
      ButtonAdv(*this, this, "ButtonAdv", "Advanced"),
      ButtonZoneData(*this, this, "ButtonZoneData", "Zone Data"),
      ButtonRSSI(*this, this, "ButtonRSSI", "RSSI"),
      ButtonRefresh(*this, this, "ButtonRefresh", "Refresh"),
      Frame1(*this, this, "Frame1"),
      imgConnected(*this, &Frame1, "imgConnected"),
      imgNotConnected(*this, &Frame1, "imgNotConnected"),
      Timer1(*this, "Timer1", events, 1000, false),
      Timer2(*this, "Timer2", events, 2000, false),
      tmrPortTO(*this, "tmrPortTO", events, 2000, false),
      Sent(settings) {
  txtTerm.ToolTip = "Terminal Window to radio.";
  ButtonZoneData.ToolTip = "Click to get Zone Data statistics.";
  ButtonZoneData.Enabled = false;
  ButtonRSSI.ToolTip = "Click to get RSSI information. (Remote only)";
  ButtonRSSI.Enabled = false;
  ButtonRefresh.ToolTip = "Click to refresh the screen information.";
  imgConnected.ToolTip = "Click to disconnect...";
  imgConnected.Visible = false;
  imgNotConnected.ToolTip = "Click to connect...";

  Width = windowWidth;
  Height = windowHeight;
  tbrToolBar.Height = toolbarHeight;
  InfoFrame.Left = 60;
  InfoFrame.Top = settingsTop;
  InfoFrame.Width = 4800;
  InfoFrame.Height = 4200;
  SettingsTab.Left = 4920;
  SettingsTab.Top = settingsTop;
  SettingsTab.Width = windowWidth - 4980;
  SettingsTab.Height = 4200;
  NetSet[0].Left = SettingsTab.Left() + 60;
  NetSet[0].Top = settingsTop + tabHeight;
  NetSet[0].Width = SettingsTab.Width() - 120;
  NetSet[0].Height = SettingsTab.Height() - tabHeight - 60;
  Frame1.Width = 600;
  for (Button* button : {&ButtonAdv, &ButtonZoneData, &ButtonRSSI, &ButtonRefresh}) {
    button->Width = 1200;
  }
  cmdReadRadio.SetFocus();
  Form_Resize();
}

void frmOrvalent::LayOut(double screenWidth, double screenHeight) {
  Left = (screenWidth - Width()) / 2;
  Top = (screenHeight - Height()) / 2;
  StackSettingFrames();
  SavedInfoTop = InfoFrame.Top();
  SavedNetSetOffset = NetSet[0].Top() - InfoFrame.Top();
  SavedFormHeight = Height();
  frQuick.Top = SettingsTab.Top();
  frQuick.Left = SettingsTab.Left();
  frQuick.Height = SettingsTab.Height();
  frQuick.Width = SettingsTab.Width();
}

void frmOrvalent::StackSettingFrames() {
  for (std::size_t i = 1; i < NetSet.size(); ++i) {
    NetSet[i].Left = NetSet[0].Left();
    NetSet[i].Top = NetSet[0].Top();
    NetSet[i].Width = NetSet[0].Width();
    NetSet[i].Height = NetSet[0].Height();
  }
}

void frmOrvalent::RadioAnswered(const std::string& line, bool taken, const std::string& words) {
  if (!Sent.Answered(line, taken, words)) return;
  if (taken || Contains(words, "DENIED")) ShowRefusesChanges(!taken);
}

void frmOrvalent::ShowRefusesChanges(bool refuses) {
  if (!refuses) {
    NotLoggedIn.Drop();
    return;
  }
  TellLogin("Not logged in: the radio refuses changes");
}

void frmOrvalent::ShowLoggedOut() {
  TellLogin("Logged out: a radio with a password refuses changes");
}

void frmOrvalent::ShowLoggedIn() {
  NotLoggedIn.Drop();
  tbr_Login.Enabled = false;
  tbr_Logout.Enabled = true;
}

// The radio may refuse although the toolbar has seen a login.
void frmOrvalent::TellLogin(const std::string& sentence) {
  NotLoggedIn.Tell(sentence, [this] {
    if (!tbr_Login.Click()) mnuAccessCode.Click();
  });
}

void frmOrvalent::Form_Close() {
  if (OnClose) OnClose();
}

void frmOrvalent::Form_Drop(const std::filesystem::path& file) {
  if (OnDrop) OnDrop(file);
}

void frmOrvalent::Form_Resize() {
  if (!ResizeEnabled) return;
  const double toolbar = tbrToolBar.Height();
  txtTerm.Left = 60;
  txtTerm.Top = toolbar + 60;
  txtTerm.Width = Width() - 120;
  // While the terminal is hidden there is no room for it, and it keeps its height.
  if (TerminalShown) txtTerm.Height = SettingsTab.Top() - toolbar - 120;
  Frame1.Left = Width() - 1.5 * Frame1.Width();
  ButtonRefresh.Left = Frame1.Left() - 2 * ButtonRefresh.Width();
  ButtonRSSI.Left = ButtonRefresh.Left() - ButtonRSSI.Width() - 80;
  ButtonZoneData.Left = ButtonRSSI.Left() - ButtonZoneData.Width() - 80;
  ButtonAdv.Left = ButtonZoneData.Left() - ButtonZoneData.Width() - 80;
}

void frmOrvalent::ToggleTerminal() {
  TerminalShown = !TerminalShown;
  ResizeEnabled = false;
  txtTerm.Visible = TerminalShown;
  if (TerminalShown) {
    InfoFrame.Top = SavedInfoTop;
    SettingsTab.Top = InfoFrame.Top();
    Height = SavedFormHeight;
  } else {
    InfoFrame.Top = tbrToolBar.Height() + 60;
    SettingsTab.Top = InfoFrame.Top();
    Height = SavedFormHeight - txtTerm.Height() - 120;
  }
  NetSet[0].Top = InfoFrame.Top() + SavedNetSetOffset;
  StackSettingFrames();
  ResizeEnabled = true;
}

void frmOrvalent::ButtonAdv_Click() {
  AdvancedShown = !AdvancedShown;
  frQuick.Visible = !AdvancedShown;
  ButtonAdv.Text = AdvancedShown ? "Tasks" : "Advanced";
  SettingsTab.Visible = AdvancedShown;
  for (Frame& frame : NetSet) frame.Enabled = AdvancedShown;
  if (AdvancedShown) {
    SettingsTab_Click();
  } else {
    frQuick.BringToFront();
  }
}

void frmOrvalent::SettingsTab_Click() {
  if (frQuick.Visible()) return;
  NetSet[static_cast<std::size_t>(SettingsTab.SelectedIndex() - 1)].BringToFront();
}

}  // namespace quillmark
