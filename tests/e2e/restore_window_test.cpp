// The store and restore window over real pseudo-terminals: one radio's settings are saved, and
// another takes them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QLineEdit>

#include "e2e/program_fixture.h"
#include "restore/frmRestore.h"

namespace quillmark {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* oddSettings[] = {
    "unit 1234",       "own North ridge", "owm A > B & C", "pwr 25",    "baud 1200 8N1",
    "amask 00FF F0F0", "asense lo",       "cts 20",        "rxtot 30",  "rxd 9",
    "csaddr 77",       "hoptime 28",      "skip 3",        "repeat 2",  "retry 5",
    "fec on",          "buff off",        "saf on",        "xaddr 5",   "xmap 0000000F",
    "xrssi -90",       "dtype root",      "dlink 4800",    "dlink off", "rtu 12",
};

class RestoreWindowProgram : public Program {
 protected:
  frmRestore* Restore() const {
    return static_cast<frmRestore*>(machine->Shown.FormNamed("frmRestore"));
  }
  Hand::Ready Idle() const {
    return [this](QWidget&) {
      const frmRestore* form = Restore();
      return form != nullptr && form->ReadIdle && !form->ReadPending;
    };
  }
  static Hand::Acts Trigger(const char* action) {
    return [action](QWidget& window) { window.findChild<QAction*>(action)->trigger(); };
  }
  static Hand::Acts Click(const char* button) {
    return [button](QWidget& window) { window.findChild<QAbstractButton*>(button)->click(); };
  }
  Hand::Acts EnterFile() const {
    return [this](QWidget& dialog) {
      dialog.findChild<QLineEdit*>("fileNameEdit")->setText(home.filePath("saved.txt"));
      static_cast<QDialog&>(dialog).accept();
    };
  }
  void OpenWindow() {
    Find<QAction>("mnuConfigRestore").trigger();
    EXPECT_TRUE(Until([this] { return hand.Done() && Restore() == nullptr; }, 60));
  }

  Hand hand;
};

// How many rows can be ticked, and the words of those of them that do not show the file's value.
std::pair<int, std::vector<std::string>> Enabled(RestoreControls& form) {
  std::pair<int, std::vector<std::string>> rows;
  for (const RestoreRowControls& row : form.Rows) {
    if (!row.Check.Enabled()) continue;
    ++rows.first;
    if (MatchOf(row.Current.Text(), row.New.Text()) != RestoreMatch::Equal) {
      rows.second.emplace_back(row.Row.Word);
    }
  }
  return rows;
}

TEST_F(RestoreWindowProgram, OneRadioIsSavedAndAnotherTakesItsSettings) {
  RadioProgram other(home.path() + "/other");
  QDir().mkpath(home.filePath("other"));
  radio.Start({"--mode", "M"});
  other.Start({"--mode", "M"});
  BoxAnswerer boxes;
  Prefer("True");
  Launch();
  ASSERT_TRUE(Until([this] { return readCycles == 1; }));
  for (const char* setting : oddSettings) {
    Type(std::string(setting) + "\r");
    ASSERT_TRUE(Until([this] { return Terminal().ends_with("PROGRAMMED OK\n>"); })) << setting;
    Type("\r");
    ASSERT_TRUE(Until([this] { return Terminal().ends_with("\n>\n>"); })) << setting;
  }
  hand.Plan("frmRestore", Trigger("tbr_SaveConfig"), Idle());
  hand.Plan("FileDialog", EnterFile());
  hand.Plan(
      "frmRestore", [](QWidget& window) { Press(window, Qt::Key_Escape); }, Idle());
  hand.Start();
  OpenWindow();

  Prefer("True", other.link);
  readCycles = 0;
  Launch();
  ASSERT_TRUE(Until([this] { return readCycles == 1; }));
  hand.Plan("frmRestore", Trigger("tbr_OpenConfig"), Idle());
  hand.Plan("FileDialog", EnterFile());
  const auto loaded = [this](QWidget&) {
    return Restore()->At(RestoreSetting::SoftRTU).New.Text() == "RTU 12 (OFF)";
  };
  hand.Plan("frmRestore", Click("CheckAllButton"), loaded);
  std::pair<int, std::vector<std::string>> before;
  hand.Plan("frmRestore", [&](QWidget& window) {
    before = Enabled(*Restore());
    Trigger("tbr_ProgramRadio")(window);
  });
  std::pair<int, std::vector<std::string>> after;
  hand.Plan(
      "frmRestore",
      [&](QWidget& window) {
        after = Enabled(*Restore());
        window.close();
      },
      Idle());
  hand.Start();
  OpenWindow();

  EXPECT_THAT(boxes.Texts, IsEmpty());
  EXPECT_EQ(before.first, 31);
  EXPECT_THAT(before.second, SizeIs(24));
  EXPECT_EQ(after.first, 31);
  EXPECT_THAT(after.second, IsEmpty());
  // The main window has its port back, and reads the radio.
  EXPECT_TRUE(Until([this] { return Value("UnitAddr") == "UNIT 1234"; }));
}

}  // namespace
}  // namespace quillmark
