#include <gmock/gmock.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sim/bench.h"

namespace quillmark {
namespace {

// Virtual times of the polling: "skip" is taken by the first tick, then one reply after the other:
// sent, seen as not complete, taken, and sent again.
constexpr Duration eachReply = Milliseconds(3 * 150);
constexpr Duration beforeFirstSend = Milliseconds(290);

class ZoneQualityTest : public sim::Bench {
 public:
  // Opens both windows, does the acts in the second, and gives what that sent.
  std::string InQuality(std::function<void()> acts) {
    std::string sent;
    ExpectWindow("frmZoneData").Do([&] {
      Run(Milliseconds(1000));
      ClearLog();
      ExpectWindow("frmZoneQuality").Do([&] {
        acts();
        const bool left = !WindowOpen("frmZoneQuality");
        EXPECT_NE(CloseWindow("frmZoneQuality"), left);
      });
      EXPECT_TRUE(Click("mnuShowZoneQuality"));
      sent = Sent();
      EXPECT_TRUE(CloseWindow("frmZoneData"));
    });
    EXPECT_TRUE(Click("ButtonZoneData"));
    CheckExpectations();
    return sent;
  }
  std::string Percents() {
    std::string texts;
    for (int zone = 0; zone < 8; ++zone) {
      texts += (zone == 0 ? "" : ",") + Text("percentUsable_" + std::to_string(zone));
    }
    return texts;
  }
};

TEST_F(ZoneQualityTest, AWholeSession) {
  StartConnected({.Mode = 'M'});
  ASSERT_TRUE(Radio().Program("skip", "8"));
  for (int zone = 1; zone <= 8; ++zone) Radio().SetZoneCounters(zone, 0, 100, zone);
  EXPECT_EQ(InQuality([&] {
              EXPECT_EQ(Text("frmZoneQuality"), "Zone Quality");
              Run(beforeFirstSend + eachReply);
              EXPECT_EQ(Text("frameZone_7"), "Zone 8 (skipped)");
              EXPECT_EQ(Text("frameZone_6"), "Zone 7");
              EXPECT_EQ(Percents(), "0,0,0,0,0,0,0,0");  // held back
              Run(eachReply);
              EXPECT_EQ(Percents(), "99,98,97,96,95,94,93,92");
              EXPECT_DOUBLE_EQ(Find("usableBar_0").Height(), 99 * 3615.0 / 100);
              EXPECT_DOUBLE_EQ(Find("usableBar_0").Top(), 4455 - 99 * 3615.0 / 100);
              EXPECT_TRUE(Click("mnuToggleZoneUpdates"));
              EXPECT_EQ(Text("mnuToggleZoneUpdates"), "&Start Zone Updates");
              Run(Seconds(10));
              EXPECT_TRUE(Click("mnuToggleZoneUpdates"));
              Run(Milliseconds(160));
              EXPECT_TRUE(Click("mnuExitScreen"));
            }),
            "skip\rZONE DATA\rZONE DATA\rZONE DATA\r");
}

TEST_F(ZoneQualityTest, TheZoneWindowGoesOnAfterIt) {
  StartConnected();
  for (const bool stopped : {false, true}) {
    ExpectWindow("frmZoneData").Do([&] {
      Run(Milliseconds(2100));
      EXPECT_TRUE(!stopped || Click("mnuToggleZoneUpdates"));
      ExpectWindow("frmZoneQuality").Do([&] {
        EXPECT_FALSE(Enabled("frmZoneData.pollTimer"));
        EXPECT_FALSE(Enabled("frmZoneData.resetTimer"));
        Run(Seconds(1));
        ClearLog();
        EXPECT_TRUE(Click("mnuExitScreen"));
      });
      EXPECT_TRUE(Click("mnuShowZoneQuality"));
      Run(Seconds(2));
      EXPECT_EQ(Sent().empty(), stopped);
      EXPECT_TRUE(Click("mnuExitScreen"));
    });
    EXPECT_TRUE(Click("ButtonZoneData"));
  }
}

// What zone 1 shows, reply after reply, while each other zone receives 100 packets without errors.
TEST_F(ZoneQualityTest, WhatAReplyShows) {
  using Reply = std::pair<std::int64_t, std::int64_t>;  // received, of which with errors
  StartConnected({.Mode = 'M'});
  const struct {
    std::vector<Reply> Given;
    std::vector<const char*> Shown;
    bool Blocked = false;
    const char* Skipped = "NONE";
  } cases[] = {
      // Held back once; ten points are no jump; a second jump shows, wherever it leads.
      {{{100, 50}, {100, 50}, {100, 30}, {100, 30}, {100, 29}}, {"0", "50", "50", "70", "71"}},
      {{{100, 90}, {100, 80}, {100, 69}, {100, 80}, {100, 90}}, {"10", "20", "20", "20", "10"}},
      {{{100, 50}, {100, 50}, {100, 0}, {100, 99}}, {"0", "50", "50", "1"}},
      // Nothing received is no jump; more errors than packets; the integer part.
      {{{100, 0}, {100, 0}, {0, 0}, {100, 0}}, {"0", "100", "0", "0"}},
      {{{100, 5}, {100, 5}, {100, 200}, {100, 200}}, {"0", "95", "95", "0"}},
      {{{1000, 901}, {3, 0}, {3, 1}, {3, 1}}, {"9", "9", "66", "66"}},
      // Above the average; four skipped; the totals at their end.
      {{{200, 0}, {200, 0}, {200, 0}, {200, 0}}, {"0", "100", "100", "100"}, true},
      {{{100, 0}, {100, 0}}, {"0", "50"}, true, "5,6,7,8"},
      {{{99'999'999, 0}, {99'999'999, 0}}, {"0", "100"}, true},
  };
  for (const auto& each : cases) {
    ASSERT_TRUE(Radio().Program("skip", each.Skipped));
    for (int zone = 2; zone <= 8; ++zone) Radio().SetZoneCounters(zone, 0, 100, 0);
    InQuality([&] {
      EXPECT_TRUE(!each.Blocked || Click("mnuBlockedFrequencies"));
      EXPECT_EQ(Checked("mnuNormalAveraging"), !each.Blocked);
      EXPECT_TRUE(Click(each.Blocked ? "mnuBlockedFrequencies" : "mnuNormalAveraging"));
      EXPECT_EQ(Checked("mnuBlockedFrequencies"), each.Blocked);
      EXPECT_EQ(Checked("mnuNormalAveraging"), !each.Blocked);
      Run(beforeFirstSend);
      for (std::size_t i = 0; i < each.Given.size(); ++i) {
        Radio().SetZoneCounters(1, 0, each.Given[i].first, each.Given[i].second);
        Run(eachReply);
        EXPECT_EQ(Text("percentUsable_0"), each.Shown[i])
            << "case " << &each - cases << ", reply " << i;
      }
    });
  }
}

std::string ZoneReply(const std::string& rx, const std::string& errors) {
  std::string text;
  for (int zone = 1; zone <= 8; ++zone) {
    const std::string digit = "\r\n" + std::to_string(zone) + ":";
    text.append(digit).append("TX TOTAL 00000000");
    text.append(digit).append("RX TOTAL ").append(rx);
    text.append(digit).append("RX ERROR ").append(errors);
  }
  return text + "\r\n";
}

TEST_F(ZoneQualityTest, HostileReplies) {
  StartConnected();
  const struct {
    const char *Name, *Skip;
    std::string Reply;
    const char* Shown;
  } cases[] = {
      {"more skipped than there are", "1,1,1,1,1,1,1,1,1,1,1,1", ZoneReply("00000100", "00000000"),
       "12"},
      {"below nothing", "1,2", ZoneReply("-9999999", "99999999"), "0"},
      {"errors below nothing", "NONE", ZoneReply("00000001", "-9999999"), "100"},
      {"a point and blanks", "NONE", ZoneReply("  100.4 ", "  50    "), "50"},
  };
  for (const auto& each : cases) {
    Radio().SetReply("skip", "\r\nSKIP " + std::string(each.Skip) + "\r\n");
    Radio().SetReply("zone data", each.Reply);
    InQuality([&] {
      EXPECT_TRUE(Click("mnuBlockedFrequencies"));
      Run(beforeFirstSend + 3 * eachReply);
      EXPECT_EQ(Text("percentUsable_0"), each.Shown) << each.Name;
    });
  }
}

// Text that is no zone data gets 500 ms without polling, zone data that stays incomplete 500 ms
// with it; both are dropped then, and the next reply shows.
TEST_F(ZoneQualityTest, RepliesCutAnywhere) {
  StartConnected();
  const std::string whole = ZoneReply("00000100", "00000000");
  const auto nextPoll = [&] {
    ClearLog();
    EXPECT_TRUE(RunUntil([&] { return !Sent().empty(); }));
    EXPECT_EQ(Sent(), "ZONE DATA\r");
    return Now();
  };
  InQuality([&] {
    Run(beforeFirstSend);
    for (std::size_t length = 0; length <= whole.size(); length += 3) {
      Radio().SetReply("zone data", whole.substr(0, length), false);
      const Duration cut = nextPoll();
      Run(Milliseconds(20));
      Radio().SetReply("zone data", whole);
      const bool isZoneData = length >= std::string_view("\r\n1:").size();
      EXPECT_EQ(nextPoll() - cut, Milliseconds(isZoneData ? 900 : 950)) << length;
      nextPoll();
    }
    EXPECT_EQ(Percents(), "100,100,100,100,100,100,100,100");
  });
}

}  // namespace
}  // namespace quillmark
