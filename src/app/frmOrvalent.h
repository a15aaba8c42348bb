#pragma once

#include <filesystem>
#include <functional>
#include <span>

#include "app/find_controls.h"
#include "app/main_menus.h"
#include "app/notices.h"
#include "app/quick_task_controls.h"
#include "app/settings_rows.h"
#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "controls/timer.h"
#include "platform/event_loop.h"
#include "runs/sent_settings.h"
#include "session/session.h"

namespace quillmark {

// The main window: its controls, its two views, its layout rules. What is done at the radio with
// them has classes of its own (link/, radio/, ...), which the application wires to the controls
// here. Lives for the whole run. Positions are twips.
class frmOrvalent : public Form,
                    public LinkState,
                    public MainMenus,
                    public SettingsRows,
                    public QuickTaskControls,
                    public Notices,
                    public FindControls {
 public:
  // `settings` outlives it.
  explicit frmOrvalent(EventLoop& events, std::span<const Setting> settings = AllSettings());

  TextBox txtTerm;
  Label FirstSteps;  // over the empty terminal, until the first connect
  Button ButtonAdv, ButtonZoneData, ButtonRSSI, ButtonRefresh;
  Frame Frame1;
  Lamp imgConnected, imgNotConnected;
  Timer Timer1, Timer2, tmrPortTO;

  // What was sent to the radio last.
  SentSettings Sent;

  bool ResizeEnabled = true;
  bool TerminalShown = true;
  bool AdvancedShown = false;

  // Takes the places that ToggleTerminal goes back to, and lays the frames over each other.
  void LayOut(double screenWidth, double screenHeight);
  void ToggleTerminal();
  void ButtonAdv_Click();
  void SettingsTab_Click();

  // The radio has answered to a line, in its own words: the last settings sent and the notice on
  // the login follow.
  void RadioAnswered(const std::string& line, bool taken, const std::string& words);
  // The radio refuses changes as nobody is logged in: a notice tells it, whose click opens the
  // login. Or it does not, and the notice goes.
  void ShowRefusesChanges(bool refuses);
  // The radio was told to log out. Whether it has a password is not known.
  void ShowLoggedOut();
  // The radio has taken a password.
  void ShowLoggedIn();

  // What the close box does.
  std::function<void()> OnClose;
  // What a file that is dropped on the window does.
  std::function<void(const std::filesystem::path&)> OnDrop;

 protected:
  void Form_Close() override;
  void Form_Resize() override;
  void Form_Drop(const std::filesystem::path& file) override;

 private:
  void StackSettingFrames();
  void TellLogin(const std::string& sentence);

  double SavedInfoTop = 0;
  double SavedNetSetOffset = 0;
  double SavedFormHeight = 0;
};

}  // namespace quillmark
