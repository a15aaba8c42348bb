#include <gmock/gmock.h>

#include <string>

#include "sim/bench.h"

namespace quillmark {
namespace {

const std::string lostRadio =
    "There was an error communicating with the radio. Please reconnect and try again";
const std::string vanished = "Click Cancel to quit, OK to ignore.";

// What the windows that poll the radio do when it is not there any more.
class LostLinkTest : public sim::Bench {
 public:
  void InZoneData(std::function<void()> acts) {
    ExpectWindow("frmZoneData").Do(std::move(acts));
    EXPECT_TRUE(Click("ButtonZoneData"));
    CheckExpectations();
    EXPECT_EQ(Application().Ticks().LineHolders, 0);
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

TEST_F(LostLinkTest, APortThatClosesWhileItIsPolled) {
  StartConnected();
  InZoneData([&] {
    Run(Seconds(5));
    ExpectLostRadio();
    Port().SetPortOpen(false);
    Run(Seconds(5));
    ExpectStopped("frmZoneData");
    EXPECT_TRUE(CloseWindow("frmZoneData"));
  });
}

// One event, one box: that of the port that vanished.
TEST_F(LostLinkTest, AnAdapterThatIsPulled) {
  const Duration moments[] = {Milliseconds(2049), Milliseconds(2051), Milliseconds(2649),
                              Milliseconds(2651), Milliseconds(2670)};
  for (const Duration moment : moments) {
    Restart();
    UseRadio({});
    ASSERT_TRUE(Connect());
    InZoneData([&] {
      Run(moment);
      ExpectBox(vanished).Saying("Unknown error or event").StaysUp(Seconds(10));
      Unplug();
      Run(Seconds(12));
      ExpectStopped("frmZoneData");
      EXPECT_TRUE(CloseWindow("frmZoneData"));
    });
    Plug();
  }
  // The window finds it out first.
  ASSERT_TRUE(Connect());
  InZoneData([&] {
    ExpectBox(vanished);
    Sockets().Unplug(1);
    EXPECT_TRUE(Click("mnuResetZoneData"));
    ExpectStopped("frmZoneData");
    EXPECT_TRUE(CloseWindow("frmZoneData"));
  });
  Plug();
  ASSERT_TRUE(Connect());
  InZoneData([&] {
    Run(Seconds(3));
    InQuality([&] {
      Run(Seconds(1));
      ExpectBox(vanished).Reply(Answer::Cancel);
      Unplug();
      Run(Seconds(2));
      ExpectStopped("frmZoneQuality");
      EXPECT_TRUE(Click("mnuExitScreen"));
    });
    Run(Seconds(2));
    ExpectStopped("frmZoneData");
    EXPECT_TRUE(CloseWindow("frmZoneData"));
  });
}

TEST_F(LostLinkTest, QuittingWithBothWindowsUp) {
  StartConnected();
  ClearLog();
  InZoneData([&] {
    Run(Milliseconds(500));
    InQuality([&] {
      Application().Form_Unload();
      EXPECT_FALSE(WindowOpen("frmZoneQuality"));
    });
  });
  EXPECT_EQ(Sent(), "skip\rskip\rPASS NONE\r");
  EXPECT_TRUE(Ended());
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

TEST_F(LostLinkTest, AnHourOfPollingTakesNoMoreRoom) {
  StartConnected({.Paced = false, .ZoneTraffic = 20});
  Line().SetLogLimit(65536);
  const int linesBefore = Radio().CommandCount();
  InZoneData([&] {
    const std::size_t controls = As<Form>("frmZoneData").Controls().size();
    Shared().RefreshRequested = true;  // waits
    std::size_t longest = 0;
    for (int minute = 0; minute < 60; ++minute) {
      Run(Seconds(60));
      longest = std::max(longest, Shared().RxBuffer.View().size());
    }
    EXPECT_LE(longest, 600U);
    EXPECT_LE(Text("txtTerm").size(), 17000U);
    EXPECT_EQ(As<Form>("frmZoneData").Controls().size(), controls);
    EXPECT_GE(std::stoi(Text("zoneTXCount_0")), 20 * 3590);
    InQuality([&] {
      Run(Seconds(3600));
      EXPECT_LE(Shared().RxBuffer.View().size(), 600U);
      EXPECT_TRUE(Click("mnuExitScreen"));
    });
    EXPECT_TRUE(Click("mnuExitScreen"));
  });
  const auto& lines = Radio().Lines();
  for (auto line = lines.rbegin(); line->text != "skip"; ++line) {
    ASSERT_EQ(line->text, "ZONE DATA");
  }
  EXPECT_GT(Radio().CommandCount() - linesBefore, 3600 * 10);
}

TEST_F(LostLinkTest, WhoAsksForALinkThatWentLongAgoIsTold) {
  for (const char* first : {"mnuToggleZoneUpdates", "mnuResetZoneData"}) {
    StartConnected();
    InZoneData([&] {
      Run(Seconds(3));
      EXPECT_TRUE(Click("mnuToggleZoneUpdates"));
      ExpectBox(vanished);
      Unplug();
      Run(Seconds(60));
      ExpectLostRadio();
      EXPECT_TRUE(Click(first));
      Run(Seconds(3));
      ExpectLostRadio();
      EXPECT_TRUE(Click("mnuResetZoneData"));
      EXPECT_TRUE(CloseWindow("frmZoneData"));
    });
    Plug();
    ASSERT_TRUE(Quit());
    Restart();
  }
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
