#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <utility>

#include "window_bench.h"

namespace quillmark {
namespace {

const std::string lostRadio =
    "There was an error communicating with the radio. Please reconnect and try again";

// What the windows that poll the radio do when it is not there any more.
class LostLinkTest : public WindowBench {
 public:
  void InZoneData(std::function<void()> acts) {
    InWindow("ButtonZoneData", "frmZoneData", std::move(acts));
    EXPECT_FALSE(Application().Talk().Turns.Taken());
  }
  void InQuality(std::function<void()> acts) {
    ExpectWindow("frmZoneQuality").Do(std::move(acts));
    EXPECT_TRUE(Click("mnuShowZoneQuality"));
  }
  void ExpectLostRadio() { ExpectBox("Error").Saying(lostRadio).With(Icon::Exclamation); }
  void ExpectStopped(const std::string& window) {
    EXPECT_FALSE(Enabled(window + ".pollTimer")) << window;
    EXPECT_FALSE(Enabled(window + ".resetTimer")) << window;
    EXPECT_EQ(Text(window + ".mnuToggleZoneUpdates"), "&Start Zone Updates") << window;
  }
};

TEST_F(LostLinkTest, AClosedPortIsToldOnceAndAgainWhenAsked) {
  StartConnected();
  ASSERT_TRUE(Click("tbr_Disconnect"));
  ExpectLostRadio();
  InZoneData([&] {
    ExpectStopped("frmZoneData");
    Run(Seconds(10));
    ExpectLostRadio();
    EXPECT_TRUE(Click("mnuToggleZoneUpdates"));
    Run(Seconds(3));
    ExpectStopped("frmZoneData");
    ExpectLostRadio();
    EXPECT_TRUE(Click("mnuResetZoneData"));
    ExpectLostRadio();
    InQuality([&] {
      ExpectStopped("frmZoneQuality");
      Run(Seconds(10));
      EXPECT_TRUE(Click("mnuExitScreen"));
    });
    EXPECT_TRUE(Click("mnuExitScreen"));
  });
}

TEST_F(LostLinkTest, ARadioThatFallsSilentIsAskedAgainAndFoundWhenItIsBack) {
  StartConnected({.ZoneTraffic = 20});
  InZoneData([&] {
    Run(Seconds(5));
    const std::string before = Text("zoneTXCount_0");
    Faults().SilentFrom = Radio().CommandCount() + 1;
    Run(Seconds(5));
    ClearLog();
    Run(Seconds(10));
    EXPECT_EQ(SentCommands().size(), 200U);  // one each tick, as nothing comes
    Faults().SilentFrom = 0;
    Run(Seconds(3));
    EXPECT_NE(Text("zoneTXCount_0"), before);
    EXPECT_TRUE(CloseWindow("frmZoneData"));
  });
}

// Clicked in the middle of a connect or a read, they wait, and look again whether they still may.
TEST_F(LostLinkTest, WindowsWaitForAConnectAndForAReadThatForbidsThem) {
  StartConnected();
  ASSERT_TRUE(Click("tbr_Disconnect"));
  ClearLog();
  ExpectWindow("frmZoneData").Do([&] {
    EXPECT_THAT(Sent(), ::testing::HasSubstr("OPEN\r\rskip\r"));
    EXPECT_TRUE(CloseWindow("frmZoneData"));
  });
  After(Milliseconds(900), [this] { EXPECT_TRUE(Click("ButtonZoneData")); });
  ASSERT_TRUE(Click("tbr_Connect"));
  ASSERT_TRUE(Refresh());
  Radio().Program("mode", "M");
  OnCommand("own", [this] { EXPECT_TRUE(Click("ButtonRSSI")); });
  ASSERT_TRUE(Refresh());
  Run(Seconds(1));
  EXPECT_FALSE(WindowOpen("frmRSSI"));
}

// A click that was put off to the end of a read gives way to the next one.
TEST_F(LostLinkTest, WindowsOpenInTheOrderOfTheirClicks) {
  StartConnected();
  OnCommand("own", [this] { EXPECT_TRUE(Click("ButtonZoneData")); });
  OnCommand("owm", [this] { EXPECT_TRUE(Click("ButtonRSSI")); });
  std::string opened;
  for (const char* name : {"frmRSSI", "frmZoneData"}) {
    ExpectWindow(name).StaysUp(Seconds(1)).Do([&](Form& form) {
      opened += form.Name() + " ";
      form.UserClose();
    });
  }
  ASSERT_TRUE(Click("ButtonRefresh"));
  Run(Seconds(10));
  EXPECT_EQ(opened, "frmZoneData frmRSSI ");
}

}  // namespace
}  // namespace quillmark
