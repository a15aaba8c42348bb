// Settings, login and preferences in the real windows.

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <algorithm>

#include "e2e/program_fixture.h"
#include "prefs/colours.h"
#include "qt/desktop/contrast.h"
#include "qt/widgets/clickable_text.h"
#include "qt/widgets/terminal_view.h"
#include "qt/window_forms.h"
#include "settings/frmDLINKOptions.h"

namespace quillmark {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// Types over what stands in a line, and ends with the key that stands for the default button.
void Answer(QWidget& window, const char* line, const std::string& text) {
  QWidget* found = window.findChild<QLineEdit*>(line);
  TypeInto(*found, text);
  Press(*found, Qt::Key_Return);
}

TEST_F(Program, TheFindBarTakesTheFocusAndGivesItBack) {
  radio.Start();
  Prefer("True");
  Launch();
  ASSERT_TRUE(Until([this] { return readCycles == 1; }));
  auto& terminal = Find<TerminalView>("txtTerm");
  auto& line = Find<QLineEdit>("txtFind");
  const auto& row = Find<ValueBox>("PowerLevel");
  terminal.setFocus();
  Find<QAction>("mnuFind").trigger();
  EXPECT_TRUE(line.hasFocus());
  Find<QPushButton>("cmdFindClose").click();
  EXPECT_TRUE(Until([&] { return terminal.hasFocus(); }));
  Find<QAction>("mnuFind").trigger();
  TypeInto(line, "power level");
  EXPECT_TRUE(line.hasFocus() && row.isVisible() && !row.hasFocus());
  Press(line, Qt::Key_Return);
  EXPECT_TRUE(Until([&] { return row.hasFocus() && !line.isVisible(); }));
}

TEST_F(Program, LogsInWithThePasswordAndChangesASetting) {
  radio.Start({"--password", "k9Zw"});
  Prefer("True");
  BoxAnswerer boxes;
  Launch();
  ASSERT_TRUE(Until([this] { return readCycles == 1; }));
  EXPECT_TRUE(Find<QAction>("tbr_Login").isEnabled());

  Hand hand;
  hand.Plan(
      "frmLogin", [](QWidget& login) { Answer(login, "txtPassword", "wrongly"); },
      [](QWidget& login) { return login.findChild<QLineEdit*>("txtPassword")->hasFocus(); });
  hand.Plan(
      "frmLogin",
      [](QWidget& login) {
        EXPECT_EQ(login.findChild<QLineEdit*>("txtPassword")->displayText(), "****");
        Answer(login, "txtPassword", "k9Zw");
      },
      [](QWidget& login) { return login.findChild<QLineEdit*>("txtPassword")->hasSelectedText(); });
  hand.Start();
  Find<QAction>("tbr_Login").trigger();
  EXPECT_TRUE(hand.Done());
  EXPECT_THAT(boxes.Texts, ElementsAre("Invalid Password, try again!"));
  EXPECT_FALSE(Find<QAction>("tbr_Login").isEnabled());
  EXPECT_TRUE(Find<QAction>("tbr_Logout").isEnabled());
  EXPECT_TRUE(Until([this] { return Terminal().starts_with("*** PASSWORD ACCEPTED ***"); }));

  Find<QPushButton>("ButtonAdv").click();
  hand.Plan("InputBox", [](QWidget& box) {
    EXPECT_EQ(box.findChild<QLabel*>("inputPrompt")->text(),
              "Enter a new Power Level:\n\n20dBm through 30dBm in 1dBm steps");
    EXPECT_EQ(box.findChild<QLineEdit*>("inputLine")->selectedText(), "PWR 30 dBm");
    Answer(box, "inputLine", "25");
  });
  hand.Start();
  ClickOn(Find<ValueBox>("PowerLevel"));
  EXPECT_TRUE(hand.Done());
  EXPECT_TRUE(Until([this] { return Value("PowerLevel") == "PWR 25 dBm"; }));
  EXPECT_THAT(radio.Lines(), HasSubstr(" s: pwr 25\n"));
  EXPECT_THAT(Terminal() + radio.Lines(), Not(HasSubstr("k9Zw")));
}

// The names of what the tab key leads to, from where the focus is when a window opens.
std::string TabOrder(QWidget& window) {
  std::vector<std::string> names;
  for (QWidget* at = window.focusWidget(); at != nullptr; at = window.focusWidget()) {
    const std::string name = at->objectName().toStdString();
    if (std::find(names.begin(), names.end(), name) != names.end()) break;
    names.push_back(name);
    Press(*at, Qt::Key_Tab);
  }
  std::string order;
  for (const std::string& name : names) order += (order.empty() ? "" : " ") + name;
  return order;
}

TEST_F(Program, TheTabKeyFollowsTheEye) {
  Prefer("False");
  BoxAnswerer boxes;
  Launch();
  console->Main().At(SettingId::DLINK).Text = "DLINK 19200 (OFF)";
  struct Case {
    const char* Window;
    const char* Order;
  };
  const Case cases[] = {
      {"frmLogin", "txtPassword NoneButton cmdOK cmdCancel"},
      {"frmSetPass", "PassRadio_1 OKButton CancelButton"},
      {"frmSetup", "RxFrequency TxFrequency Key ExitButton"},
      {"frmDTYPEOptions", "NodeButton CancelButton RootButton"},
      {"frmPreferences",
       "ConnectOnLaunchCheck KeepAliveCheck LogoutCheck HistoryCheck PlanFirstCheck BoldCheck "
       "TextColorList "
       "BackgroundColorList ThemeList OKButton CancelButton"},
      {"frmDLINKOptions", "OnOption_1 BaudRate_4 OKButton CancelButton"},
  };
  WindowForms forms{*platform, *console};
  std::vector<std::shared_ptr<Form>> all;
  for (const Case& each : cases) {
    all.push_back(forms.Make(each.Window));
    machine->Shown.Show(all.back());
    QWidget* shown = machine->Shown.WindowOf(*all.back());
    ASSERT_TRUE(Until([&] { return QApplication::activeWindow() == shown; }, 2));
    EXPECT_EQ(TabOrder(*shown), each.Order) << each.Window;
  }
  // The arrow keys move among those that exclude each other.
  auto& dlink = static_cast<frmDLINKOptions&>(*all.back());
  auto* rate = machine->Shown.WindowOf(dlink)->findChild<QWidget*>("BaudRate_4");
  rate->setFocus();
  Press(*rate, Qt::Key_Down);
  EXPECT_TRUE(dlink.BaudRate[5].Checked());
  EXPECT_TRUE(dlink.OnOption[1].Checked());
}

TEST_F(Program, PreferencesAreSeenAtOnceAndStandInTheFile) {
  Prefer("False");
  Launch();
  const auto change = [](QWidget& window) {
    Press(*window.findChild<QComboBox*>("TextColorList"), Qt::Key_Down);
    Press(*window.findChild<QComboBox*>("BackgroundColorList"), Qt::Key_Down);
    window.findChild<QAbstractButton*>("BoldCheck")->click();
    Press(*window.findChild<QComboBox*>("ThemeList"), Qt::Key_Up);
  };
  Hand hand;
  hand.Plan("frmPreferences", [&](QWidget& window) {
    change(window);
    Press(window, Qt::Key_Return);
  });
  hand.Plan("frmPreferences", [&](QWidget& window) {
    change(window);
    Press(window, Qt::Key_Escape);
  });
  hand.Start();
  Find<QAction>("mnuPreferences").trigger();
  Find<QAction>("mnuPreferences").trigger();
  EXPECT_TRUE(hand.Done());

  const auto& terminal = Find<TerminalView>("txtTerm");
  EXPECT_EQ(terminal.palette().color(QPalette::Text), QColor(255, 0, 0));
  EXPECT_EQ(terminal.palette().color(QPalette::Base), QColor(0, 0, 0));
  EXPECT_FALSE(terminal.font().bold());
  EXPECT_TRUE(IsDark(QApplication::palette()));

  IniPreferenceStore store(IniPreferenceStore::UsualFile());
  EXPECT_EQ(store.Read("Preferences", "TextColor", "none"), "255");
  EXPECT_EQ(store.Read("Preferences", "Theme", "none"), "Dark");

  // Colours that nobody has chosen give way to a dark theme, and come back with a light one.
  console->Main().txtTerm.ForeColor = DefaultTextColour;
  console->Main().txtTerm.BackColor = DefaultBackColour;
  EXPECT_TRUE(IsDark(terminal.palette()));
  EXPECT_LT(terminal.palette().color(QPalette::Base).lightness(), 64);
  platform->Desktop.UseTheme(Theme::Light);
  machine->Events.Pump();
  EXPECT_EQ(terminal.palette().color(QPalette::Text), QColor(0, 0, 0x99));
  EXPECT_EQ(terminal.palette().color(QPalette::Base), QColor(Qt::white));
  platform->Desktop.UseTheme(Theme::Dark);
  machine->Events.Pump();
  EXPECT_LT(terminal.palette().color(QPalette::Base).lightness(), 64);
  platform->Desktop.UseTheme(Theme::AsDesktop);
}

}  // namespace
}  // namespace quillmark
