#include <gtest/gtest.h>

#include <random>
#include <string>

#include "sim/bench.h"

namespace quillmark {
namespace {

class LineFaultsTest : public sim::Bench {
 public:
  // What the window shows of the link agrees with the port once everything has settled.
  void ExpectNoPretence() {
    EXPECT_EQ(Visible("imgConnected"), Port().PortOpen());
    EXPECT_EQ(Visible("imgNotConnected"), !Port().PortOpen());
    EXPECT_EQ(Enabled("tbr_Disconnect"), Port().PortOpen());
    EXPECT_EQ(Enabled("tbr_Connect"), !Port().PortOpen());
    EXPECT_EQ(Checked("mnuOpen"), Port().PortOpen());
    EXPECT_EQ(Text("pnl_Settings"), Port().PortOpen() ? "Settings: 19200,N,8,1" : "Settings: ");
    EXPECT_FALSE(Main().DirectPortMode);
    EXPECT_FALSE(Main().DiscardReceived);
    EXPECT_TRUE(Main().TerminalEcho);
  }
  // The line is sound again: the console connects and reads everything.
  void ExpectToRecover() {
    Faults() = {};
    Plug();
    if (Port().PortOpen()) {
      ASSERT_TRUE(Refresh());
    } else {
      ASSERT_TRUE(Connect());
    }
    ASSERT_TRUE(Refresh());
    EXPECT_EQ(Text("SerialNumber"), "SN 00123456");
    EXPECT_EQ(Text("SoftwareRev"), "77-1234A01\r\n3.2.0  01Jan2009");
    EXPECT_EQ(Text("Mode"), "MODE M");
    EXPECT_EQ(Text("DLINK"), "DLINK 19200 (ON)");
    ExpectNoPretence();
  }
};

TEST_F(LineFaultsTest, AtAnyByteTheConsoleEndsSoundAndComesBack) {
  using sim::LineFaults;
  const struct {
    const char* What;
    std::int64_t LineFaults::*Field;
    std::int64_t Span;  // bytes of a connect, a read and some typing
  } kinds[] = {{"hang-up towards the host", &LineFaults::HangUpAtByteToHost, 1600},
               {"hang-up towards the radio", &LineFaults::HangUpAtByteToRadio, 330},
               {"byte lost towards the host", &LineFaults::DropToHost, 1600},
               {"byte lost towards the radio", &LineFaults::DropToRadio, 330},
               {"byte garbled towards the host", &LineFaults::GarbleToHost, 1600},
               {"byte garbled towards the radio", &LineFaults::GarbleToRadio, 330},
               {"byte doubled towards the host", &LineFaults::DoubleToHost, 1600},
               {"byte doubled towards the radio", &LineFaults::DoubleToRadio, 330}};
  std::mt19937 random(7);
  TolerateBoxes();
  Start();
  for (const auto& kind : kinds) {
    for (int i = 0; i < 12; ++i) {
      UseRadio({.Mode = 'M'});
      const auto at = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(kind.Span));
      SCOPED_TRACE(std::string(kind.What) + " at byte " + std::to_string(at + 1));
      Faults().*kind.Field = at + 1;
      Connect(Seconds(60));
      Type("txtTerm", "stat\r\r\rowm\r");
      Run(Seconds(10));
      ExpectNoPretence();
      ExpectToRecover();
      ASSERT_TRUE(Click("tbr_Disconnect"));
      Run(Seconds(3));
    }
  }
}

TEST_F(LineFaultsTest, ABabblingLineNeitherHangsNorGrows) {
  UseRadio({.Mode = 'M'});
  TolerateBoxes();
  Start();
  for (const int rate : {50, 900, 1900}) {
    Faults().BabblePerSecond = rate;
    Connect(Seconds(60));
    Run(Seconds(60));
    ExpectNoPretence();
    EXPECT_LE(Text("txtTerm").size(), 20000U);
    EXPECT_LE(Shared().RxBuffer.View().size(), ReceivedText::Limit);
    if (Port().PortOpen()) Click("tbr_Disconnect");
    Faults() = {};
    Run(Seconds(1));
  }
  ExpectToRecover();
}

}  // namespace
}  // namespace quillmark
