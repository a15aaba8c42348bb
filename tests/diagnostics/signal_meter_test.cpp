#include <gmock/gmock.h>

#include <string>

#include "window_bench.h"

namespace quillmark {
namespace {

class SignalMeterTest : public WindowBench {
 public:
  int Bar() { return As<ProgressBar>("ProgressBar1").Value(); }
};

TEST_F(SignalMeterTest, TheLevelIsShownLiveAndACarriageReturnEndsIt) {
  StartConnected({.Rssi = -97});
  const Duration clicked = Now();
  EXPECT_EQ(InWindow("ButtonRSSI", "frmRSSI",
                     [&] {
                       EXPECT_EQ(Text("frmRSSI"), "RSSI");
                       EXPECT_EQ(Text("Text1"), "n/a");
                       EXPECT_EQ(Bar(), 50);
                       ASSERT_TRUE(RunUntil([&] { return Text("Text1") != "n/a"; }));
                       EXPECT_EQ(Now() - clicked, Milliseconds(100));
                       EXPECT_EQ(Text("Text1"), "-97 ");
                       EXPECT_EQ(Bar(), 73);
                       Radio().SetRssi(-60);
                       Run(Milliseconds(400));
                       EXPECT_EQ(Bar(), 110);
                       // Half an hour: the reports go on, and no keep-alive ends them.
                       Shared().AskForRead();
                       Run(Seconds(1800));
                       Radio().SetRssi(-61);
                       Run(Milliseconds(400));
                       EXPECT_EQ(Text("Text1"), "-61 ");
                       EXPECT_LT(Shared().RxBuffer.View().size(), 64U);
                       EXPECT_TRUE(Click("Command1"));
                     }),
            "rssi\r\r");
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
  EXPECT_EQ(InWindow("ButtonRSSI", "frmRSSI", [&] { EXPECT_TRUE(CloseWindow("frmRSSI")); }),
            "rssi\r\r");
}

TEST_F(SignalMeterTest, WhatAReportShows) {
  StartConnected();
  const struct {
    const char *Received, *Shown;
    int Bar;
    const char* Left;
  } cases[] = {
      {"rssi\r\nRSSI -97 dBm\r\n", "-97 ", 73, " "},
      {"RSSI -130 dBm", "-130", 50, " "},
      {"RSSI -50 dBm", "-50 ", 120, " "},
      {"RSSI ?!?! dBm", "?!?!", 120, " "},
      {"RSSI dBm", "dBm", 120, nullptr},
      {"RSSI -80 dBm\r\nRSSI -70 dBm", "-80 ", 90, " "},
      {"RSSI -99.5 dBm", "-99.", 71, " "},
      {"0 dBm\r\nRSSI -6", "old", 60, nullptr},  // the end of one, the head of the next
      {"RSSI -66 dB", "old", 60, nullptr},
      {"rssi -66 dBm", "old", 60, nullptr},
      {"RSSI n/a\r\n>", "old", 60, nullptr},
  };
  InWindow("ButtonRSSI", "frmRSSI", [&] {
    Faults().SilentFrom = 1;
    Run(Seconds(1));
    for (const auto& each : cases) {
      As<ValueField>("Text1").Text = "old";
      As<ProgressBar>("ProgressBar1").Value = 60;
      Shared().RxBuffer = each.Received;
      Run(Milliseconds(100));
      const bool waits = std::string(each.Shown) == "old";
      EXPECT_EQ(Text("Text1"), each.Shown) << each.Received;
      EXPECT_EQ(Bar(), each.Bar) << each.Received;
      EXPECT_EQ(Shared().RxBuffer.View(), waits ? each.Received : " ") << each.Received;
    }
    EXPECT_TRUE(Click("Command1"));
  });
}

TEST_F(SignalMeterTest, WithoutAPortAndWithoutAnAdapter) {
  StartConnected();
  EXPECT_EQ(InWindow("ButtonRSSI", "frmRSSI",
                     [&] {
                       Run(Seconds(1));
                       ExpectBox("Click Cancel to quit, OK to ignore.").Reply(Answer::Ok);
                       Unplug();
                       Run(Seconds(2));
                       EXPECT_FALSE(Enabled("frmRSSI.Timer1"));
                       EXPECT_EQ(Text("Text1"), "-97 ");
                       EXPECT_TRUE(Click("Command1"));
                     }),
            "rssi\r");
  EXPECT_FALSE(Application().Talk().Turns.Taken());
  ExpectBox("User Help").Saying("Please Toggle COMM Port open first.").With(Icon::None);
  EXPECT_TRUE(Click("ButtonRSSI"));
}

TEST_F(SignalMeterTest, QuittingEndsTheReportsBeforeItLogsOut) {
  StartConnected({.Password = "abcd", .LoggedIn = true});
  EXPECT_EQ(InWindow("ButtonRSSI", "frmRSSI",
                     [&] {
                       Run(Seconds(1));
                       Application().Form_Unload();  // a signal to end
                     }),
            "rssi\r\rPASS NONE\r");
  EXPECT_TRUE(Ended());
  Events().Reopen();
  EXPECT_FALSE(Radio().LoggedIn());
}

}  // namespace
}  // namespace quillmark
