#include "prefs/frmPreferences.h"

#include <cstdint>
#include <string>
#include <vector>

#include "prefs/colours.h"
#include "prefs/stored_preferences.h"
#include "text/numbers.h"

namespace quillmark {

namespace {

std::vector<std::string> ColourNames() {
  std::vector<std::string> names;
  for (const NamedColour& colour : Colours()) names.emplace_back(colour.Name);
  return names;
}

std::vector<std::uint32_t> ColourValues() {
  std::vector<std::uint32_t> values;
  for (const NamedColour& colour : Colours()) values.push_back(colour.Value);
  return values;
}

// A colour that is in no row counts as the first.
int ColourIndex(std::uint32_t value) {
  for (std::size_t i = 0; i < Colours().size(); ++i) {
    if (Colours()[i].Value == value) return static_cast<int>(i);
  }
  return 0;
}

std::uint32_t ColourAt(int index) { return Colours()[static_cast<std::size_t>(index)].Value; }

}  // namespace

frmPreferences::frmPreferences(PreferenceStore& preferences, Session& shared, TextBox& coloured,
                               Desktop& themed)
    : Form("frmPreferences"),
      ConnectOnLaunchCheck(*this, this, "ConnectOnLaunchCheck", "Connect On Application Launch"),
      KeepAliveCheck(*this, this, "KeepAliveCheck", "Keep Radio Connection Alive"),
      LogoutCheck(*this, this, "LogoutCheck", "Logout User On Program Exit"),
      HistoryCheck(*this, this, "HistoryCheck", "Keep Copies Of Radio Settings"),
      PlanFirstCheck(*this, this, "PlanFirstCheck", "Show What Will Change Before Programming"),
      BoldCheck(*this, this, "BoldCheck", "Use Bold Text"),
      lblTextColor(*this, this, "lblTextColor", "Text Color"),
      lblBackgroundColor(*this, this, "lblBackgroundColor", "Text Background Color"),
      lblTheme(*this, this, "lblTheme", "Theme"),
      TextColorList(*this, this, "TextColorList", ColourNames()),
      BackgroundColorList(*this, this, "BackgroundColorList", ColourNames()),
      ThemeList(*this, this, "ThemeList", {"Light", "Dark", "As the desktop"}),
      OKButton(*this, this, "OKButton", "OK"),
      CancelButton(*this, this, "CancelButton", "Cancel"),
      store(preferences),
      session(shared),
      terminal(coloured),
      desktop(themed) {
  Caption = "Preferences";
  KeepAliveCheck.ToolTip =
      "If this is checked, the software will periodically send a carriage return to the radio, "
      "keeping the connection active.";
  LogoutCheck.ToolTip = "If this is checked, the application will logout the user on exiting.";
  HistoryCheck.ToolTip =
      "If this is checked, a copy of each radio's settings is kept on this computer when they have "
      "changed, and before they are overwritten.";
  PlanFirstCheck.ToolTip =
      "If this is checked, a list of the settings that a file or preset will change is shown "
      "before "
      "the radio is programmed, with a question.";
  for (ListBox* list : {&TextColorList, &BackgroundColorList}) list->ItemColours = ColourValues();
  TextColorList.SetListIndex(ColourIndex(terminal.ForeColor()));
  BackgroundColorList.SetListIndex(ColourIndex(terminal.BackColor()));
  ThemeList.SetListIndex(static_cast<int>(StoredTheme(store)));
  ConnectOnLaunchCheck.Checked = session.ConnectOnLaunch;
  KeepAliveCheck.Checked = session.KeepAlive;
  LogoutCheck.Checked = session.LogoutOnQuit;
  HistoryCheck.Checked = session.History;
  PlanFirstCheck.Checked = session.PlanFirst;
  BoldCheck.Checked = terminal.Bold();
  OKButton.OnClick = [this] { OKButton_Click(); };
  CancelButton.OnClick = [this] { Unload(); };
}

void frmPreferences::OKButton_Click() {
  session.ConnectOnLaunch = ConnectOnLaunchCheck.Checked();
  session.KeepAlive = KeepAliveCheck.Checked();
  session.LogoutOnQuit = LogoutCheck.Checked();
  session.History = HistoryCheck.Checked();
  session.PlanFirst = PlanFirstCheck.Checked();
  terminal.Bold = BoldCheck.Checked();
  terminal.ForeColor = ColourAt(TextColorList.ListIndex());
  terminal.BackColor = ColourAt(BackgroundColorList.ListIndex());
  StorePreferences(store, session, terminal);
  const auto theme = static_cast<Theme>(ThemeList.ListIndex());
  desktop.UseTheme(theme);
  StoreTheme(store, theme);
  Unload();
}

}  // namespace quillmark
