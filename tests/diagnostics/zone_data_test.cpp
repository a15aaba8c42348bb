#include <gmock/gmock.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "window_bench.h"

namespace quillmark {
namespace {

// Virtual times of the polling: the first tick, then one reply after the other: sent, seen as not
// complete at the next tick, given 500 ms, taken, and sent again.
constexpr Duration firstReply = Milliseconds(2000 + 50 + 600);
constexpr Duration eachReply = Milliseconds(50 + 500 + 50 + 50);

class ZoneDataTest : public WindowBench {
 public:
  // The texts of a control array, with commas.
  std::string Texts(const std::string& array) {
    std::string texts;
    for (int zone = 0; zone < 8; ++zone) {
      texts += (zone == 0 ? "" : ",") + Text(array + "_" + std::to_string(zone));
    }
    return texts;
  }
  // When each command had arrived, in ms since `start`.
  std::vector<std::int64_t> CommandTimes(Duration start) {
    std::vector<std::int64_t> times;
    const auto& log = Line().Log().ToRadio();
    for (std::size_t i = 0; i < log.Bytes.size(); ++i) {
      if (log.Bytes[i] == '\r') times.push_back((log.Times[i] - start).count() / 1000);
    }
    return times;
  }
};

TEST_F(ZoneDataTest, AWholeSession) {
  StartConnected({.Mode = 'M'});
  ASSERT_TRUE(Radio().Program("skip", "2,5"));
  for (int zone = 1; zone <= 8; ++zone) Radio().SetZoneCounters(zone, zone, 10 * zone, zone / 4);
  const Duration opened = Now();
  const std::string sent = InWindow("ButtonZoneData", "frmZoneData", [&] {
    EXPECT_EQ(Text("frmZoneData"), "Zone Data");
    EXPECT_EQ(Texts("frameZone"), "Zone 1,Zone 2,Zone 3,Zone 4,Zone 5,Zone 6,Zone 7,Zone 8");
    EXPECT_EQ(Find("zoneTXBar_7").Top(), 4455);
    Run(firstReply);
    EXPECT_EQ(Texts("frameZone"),
              "Zone 1,Zone 2 (skipped),Zone 3,Zone 4,Zone 5 (skipped),Zone 6,Zone 7,Zone 8");
    EXPECT_EQ(Texts("zoneTXCount"), "1,2,3,4,5,6,7,8");
    EXPECT_EQ(Texts("zoneRXCount"), "10,20,30,40,50,60,70,80");
    EXPECT_EQ(Texts("zoneErrorsCount"), "0,0,0,1,1,1,1,2");
    EXPECT_DOUBLE_EQ(Find("zoneRXBar_7").Height(), 0.8 * 3615);
    EXPECT_DOUBLE_EQ(Find("zoneRXBar_7").Top(), 4455 - 0.8 * 3615);
    EXPECT_EQ(CommandTimes(opened), (std::vector<std::int64_t>{2, 2055}));
    Run(eachReply);
    EXPECT_EQ(CommandTimes(opened), (std::vector<std::int64_t>{2, 2055, 2705}));

    EXPECT_TRUE(Click("mnuToggleZoneUpdates"));
    EXPECT_EQ(Text("mnuToggleZoneUpdates"), "&Start Zone Updates");
    Run(Seconds(1000));
    EXPECT_EQ(CommandTimes(opened).size(), 3U);
    // The echo of the reset is taken by one tick, which sends nothing.
    EXPECT_TRUE(Click("mnuToggleZoneUpdates"));
    EXPECT_EQ(Text("mnuToggleZoneUpdates"), "&Stop Zone Updates");
    const Duration reset = Now();
    EXPECT_TRUE(Click("mnuResetZoneData"));
    EXPECT_EQ(Texts("zoneRXCount"), "0,0,0,0,0,0,0,0");
    EXPECT_EQ(Text("labelZone_87"), "10");
    EXPECT_EQ(Find("zoneRXBar_7").Height(), 0);
    Run(Milliseconds(110));
    EXPECT_EQ(CommandTimes(reset).back(), 105);
    Run(eachReply - Milliseconds(20));
    Radio().SetZoneCounters(3, 4, 0, 0);
    Run(eachReply);
    EXPECT_EQ(Texts("zoneTXCount"), "0,0,4,0,0,0,0,0");
    EXPECT_TRUE(Click("mnuExitScreen"));
  });
  EXPECT_EQ(sent, "skip\rZONE DATA\rZONE DATA\rzone clear\rZONE DATA\rZONE DATA\r");
  EXPECT_FALSE(Application().Talk().Turns.Taken());
}

TEST_F(ZoneDataTest, WhatTheFilterShows) {
  StartConnected();
  const struct {
    std::vector<std::int64_t> Given;  // reply by reply
    const char* Shown;
  } cases[] = {
      {{5}, "5"},
      {{999}, "999"},
      {{1000}, "0"},
      {{1000, 1000}, "0"},
      {{1000, 1001}, "1001"},
      {{5, 1005}, "5"},
      {{5, 1005, 1006}, "1006"},
      {{5, 1004}, "1004"},
      {{7, 3}, "7"},
      {{7, 3, 3}, "7"},
      {{7, 3, 4}, "4"},
      {{99'999'998, 99'999'999, 0, 1}, "1"},
  };
  for (const auto& each : cases) {
    for (int field = 0; field < 3; ++field) {
      InWindow("ButtonZoneData", "frmZoneData", [&] {
        Run(Milliseconds(2040));
        for (const std::int64_t value : each.Given) {
          std::array<std::int64_t, 3> values{};
          values.at(static_cast<std::size_t>(field)) = value;
          Radio().SetZoneCounters(6, values[0], values[1], values[2]);
          Run(eachReply);
        }
        const char* const arrays[] = {"zoneTXCount_5", "zoneRXCount_5", "zoneErrorsCount_5"};
        EXPECT_EQ(Text(arrays[field]), each.Shown) << arrays[field] << " " << each.Given.back();
        EXPECT_TRUE(CloseWindow("frmZoneData"));
      });
    }
  }
}

TEST_F(ZoneDataTest, TheScaleStepsByTens) {
  StartConnected();
  const struct {
    std::int64_t Given;
    const char *Top, *First;
    double Height;
  } cases[] = {
      {0, "10", "1", 0},
      {9, "10", "1", 3253.5},
      {10, "10", "1", 3615},
      {11, "100", "10", 397.65},
      {8, "100", "10", 397.65},  // a fall is not shown
      {9, "10", "1", 3253.5},
      {100, "100", "10", 3615},
      {101, "1000", "100", 365.115},
      {1001, "10000", "1000", 361.8615},
      {99, "10000", "1000", 361.8615},
      {100, "1000", "100", 361.5},  // not by more than it must
  };
  InWindow("ButtonZoneData", "frmZoneData", [&] {
    Run(Milliseconds(2040));
    for (const auto& each : cases) {
      Radio().SetZoneCounters(8, 0, 0, each.Given);
      Run(eachReply);
      for (const int scale : {0, 7}) {
        EXPECT_EQ(Text("labelZone_" + std::to_string(scale * 11 + 10)), each.Top) << each.Given;
        EXPECT_EQ(Text("labelZone_" + std::to_string(scale * 11 + 1)), each.First) << each.Given;
        EXPECT_EQ(Text("labelZone_" + std::to_string(scale * 11)), "0");
      }
      EXPECT_NEAR(Find("zoneErrorsBar_7").Height(), each.Height, 1e-9) << each.Given;
    }
    EXPECT_EQ(Find("ZoneMarkerLine_87").Top(), 4455 - 3615);
    EXPECT_TRUE(Click("mnuExitScreen"));
  });
}

TEST_F(ZoneDataTest, SkippedZones) {
  StartConnected();
  const struct {
    const char *Received, *Skipped;
    bool Taken;
  } cases[] = {
      {" skip\r\nSKIP 1,4,7,8\r\n>", "1478", true},
      {" skip\r\nSKIP 0,9,a,,3,-1\r\n>", "3", true},
      {" skip\r\nSKIP 2,", "2", true},
      {" skip\r\nSKIP ", "", true},
      {" skip\r\nSKIP", "", true},
      {"...\rSKIP 6", "6", true},
      {"...SKIP 6", "", false},  // in the place of the echo
  };
  InWindow("ButtonZoneData", "frmZoneData", [&] {
    Faults().SilentFrom = 1;
    Shared().RxBuffer = "";
    Run(Milliseconds(2010));
    for (const auto& each : cases) {
      for (int i = 0; i < 8; ++i) As<Frame>("frameZone_" + std::to_string(i)).Text = "";
      Shared().RxBuffer = each.Received;
      Run(Milliseconds(50));
      std::string skipped;
      for (int i = 1; i <= 8; ++i) {
        const std::string digit = std::to_string(i);
        const std::string caption = Text("frameZone_" + std::to_string(i - 1));
        if (caption == "Zone " + digit + " (skipped)") skipped += digit;
      }
      EXPECT_EQ(skipped, each.Skipped) << each.Received;
      EXPECT_EQ(Shared().RxBuffer.View(), each.Taken ? "" : each.Received) << each.Received;
    }
    EXPECT_TRUE(Click("mnuExitScreen"));
  });
}

// The window recovers, and shows nothing that was not sent.
TEST_F(ZoneDataTest, DamagedReplies) {
  StartConnected();
  std::string whole;
  for (int zone = 1; zone <= 8; ++zone) {
    for (const char* label : {"TX TOTAL", "RX TOTAL", "RX ERROR"}) {
      whole += (whole.empty() ? "" : "\r\n") + std::to_string(zone) + ":" + label + " 00000012";
    }
  }
  const auto with = [&](const char* from, const std::string& to) {
    std::string text = whole;
    return text.replace(text.find(from), std::string_view(from).size(), to);
  };
  const struct {
    std::string Name, Reply, Tx, Errors;
  } cases[] = {
      {"sound", whole, "12,12,12,12,12,12,12,12", "12,12,12,12,12,12,12,12"},
      {"below nothing", with("2:TX TOTAL 00000012", "2:TX TOTAL -9999999"),
       "12,0,12,12,12,12,12,12", "12,12,12,12,12,12,12,12"},
      {"another reply in between", with("\r\n3:", "\r\nSN 00123456\r\n>ZONE DATA\r\n3:"),
       "12,12,12,12,12,12,12,12", "12,12,12,12,12,12,12,12"},
      {"a zone is missing", with("4:TX TOTAL 00000012", "x:TX TOTAL 00000012") + "          ",
       "12,12,12,12,12,12,12,12", "12,12,12,12,12,12,12,12"},
      {"a label is missing", with("8:TX TOTAL", "8:XX TOTAL"), "12,12,12,12,12,12,12,0",
       "12,12,12,12,12,12,12,0"},
      {"noise", std::string(2000, '\x81'), "0,0,0,0,0,0,0,0", "0,0,0,0,0,0,0,0"},
  };
  for (const auto& each : cases) {
    Radio().SetReply("zone data", "\r\n" + each.Reply + "\r\n");
    InWindow("ButtonZoneData", "frmZoneData", [&] {
      Run(firstReply + Seconds(1));
      EXPECT_EQ(Texts("zoneTXCount"), each.Tx) << each.Name;
      EXPECT_EQ(Texts("zoneErrorsCount"), each.Errors) << each.Name;
      // Whatever it was, it does not stand in the way for ever.
      Radio().SetReply("zone data",
                       "\r\n" + with("1:TX TOTAL 00000012", "1:TX TOTAL 00000013") + "\r\n");
      Run(Seconds(3));
      EXPECT_EQ(Text("zoneTXCount_0"), "13") << each.Name;
      EXPECT_TRUE(CloseWindow("frmZoneData"));
    });
  }
}

// A radio that was left without its echo is given it back; without it no reply is ever complete.
TEST_F(ZoneDataTest, RepliesWithoutTheirEcho) {
  const struct {
    bool SkipAnswered;
    const char* Sent;
  } cases[] = {
      {true, "skip\reeco\rskip\rZONE DATA\r"},
      {false, "skip\rZONE DATA\reeco\rZONE DATA\r"},
  };
  for (const auto& each : cases) {
    UseRadio({.Mode = 'M'});
    if (!WindowOpen("frmOrvalent")) Start();
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(Radio().Program("skip", "2"));
    for (int zone = 1; zone <= 8; ++zone) Radio().SetZoneCounters(zone, 7, 100, 7);
    ASSERT_TRUE(Type("txtTerm", "deco\r"));
    Run(Milliseconds(100));
    if (!each.SkipAnswered) Radio().SetReply("skip", "", false);
    const std::string sent = InWindow("ButtonZoneData", "frmZoneData", [&] {
      Run(Seconds(6));
      EXPECT_EQ(Text("frameZone_1") == "Zone 2 (skipped)", each.SkipAnswered);
      EXPECT_EQ(Texts("zoneTXCount"), "7,7,7,7,7,7,7,7");
      EXPECT_TRUE(CloseWindow("frmZoneData"));
    });
    EXPECT_THAT(sent, testing::StartsWith(each.Sent));
    ASSERT_TRUE(Click("tbr_Disconnect"));
  }
}

}  // namespace
}  // namespace quillmark
