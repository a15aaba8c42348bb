// The signal meter and the zone windows, opened from the real main window.

#include <QAction>

#include "e2e/program_fixture.h"

namespace quillmark {
namespace {

using testing::ElementsAre;
using testing::MatchesRegex;

std::string Spoken(QWidget& window, const char* widget) {
  const auto* shown = window.findChild<QWidget*>(widget);
  return (shown->accessibleName() + ": " + shown->accessibleDescription()).toStdString();
}

TEST_F(Program, TheSignalAndTheZonesAreShownLiveUntilTheAdapterIsPulled) {
  radio.Start({"--rssi", "-61", "--zone-traffic", "50"});
  Prefer("True");
  BoxAnswerer boxes;
  Launch();
  ASSERT_TRUE(Until([this] { return readCycles == 1; }));
  Hand hand;
  hand.Plan(
      "frmRSSI",
      [](QWidget& window) {
        EXPECT_EQ(Spoken(window, "meter"), "Signal level: -120 dBm to -50 dBm: 84 %");
        EXPECT_TRUE(window.findChild<QWidget*>("Command1")->hasFocus());
        Press(window, Qt::Key_Escape);
      },
      [](QWidget& window) { return window.findChild<ValueBox*>("Text1")->text() == "-61 "; });
  hand.Start();
  Find<QPushButton>("ButtonRSSI").click();
  EXPECT_TRUE(hand.Done());

  hand.Plan(
      "frmZoneData",
      [&](QWidget& window) {
        EXPECT_THAT(Spoken(window, "zoneData_3"),
                    MatchesRegex("Zone 4: Tx\\. [0-9]+, Rx\\. [0-9]+, Errors [0-9]+"));
        window.findChild<QAction*>("mnuShowZoneQuality")->trigger();
        radio.HangUp();
        EXPECT_TRUE(Until([&] { return !boxes.Texts.empty(); }));
        Until([] { return false; }, 0.3);
        EXPECT_THAT(boxes.Texts, ElementsAre("Unknown error or event"));
        EXPECT_EQ(window.findChild<QAction*>("mnuToggleZoneUpdates")->text(),
                  "&Start Zone Updates");
        Press(window, Qt::Key_Escape);
      },
      [](QWidget& window) {
        return Spoken(window, "zoneData_3").find("Tx. 0") == std::string::npos;
      });
  hand.Plan(
      "frmZoneQuality",
      [](QWidget& window) {
        auto* normal = window.findChild<QAction*>("mnuNormalAveraging");
        auto* blocked = window.findChild<QAction*>("mnuBlockedFrequencies");
        EXPECT_TRUE(normal->isChecked());
        blocked->trigger();
        blocked->trigger();
        EXPECT_TRUE(blocked->isChecked());
        EXPECT_FALSE(normal->isChecked());
        Press(window, Qt::Key_Escape);
      },
      [](QWidget& window) { return Spoken(window, "zoneQuality_0") != "Zone 1: % Usable 0"; });
  hand.Start();
  Find<QPushButton>("ButtonZoneData").click();
  EXPECT_TRUE(hand.Done());
}

}  // namespace
}  // namespace quillmark
