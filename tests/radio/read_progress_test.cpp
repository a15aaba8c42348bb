#include <gmock/gmock.h>

#include <set>

#include "sim/bench.h"

namespace quillmark {
namespace {

using ::testing::ElementsAre;

class ReadProgressTest : public sim::Bench {};

TEST_F(ReadProgressTest, AReadShowsItsProgressAndThatTheRadioIsSilent) {
  StartConnected();
  // "baud", the tenth of the read, and the two behind it draw no answer.
  Faults().SilentFrom = Radio().CommandCount() + 10;
  Faults().SilentUntil = Faults().SilentFrom + 2;
  std::vector<std::string> seen;
  std::set<std::string> clock;
  const auto look = [&] {
    const auto& bar = As<ProgressBar>("barRun");
    std::string text =
        bar.Doing() + " " + std::to_string(bar.Value()) + " of " + std::to_string(bar.Max());
    if (Visible("NoAnswer")) text += ". " + Text("NoAnswer");
    if (!seen.empty() && seen.back() == text) return;
    seen.push_back(text);
    clock.insert(Text("pnl_ConnectTime"));
  };
  for (int tenth = 20; tenth < 150; ++tenth) After(Milliseconds(100 * tenth), look);
  ASSERT_TRUE(Refresh());
  const auto silent = [](int place, int seconds) {
    return "Reading " + std::to_string(place) + " of 40. No answer for " + std::to_string(seconds) +
           " s. Disconnect stops the read.";
  };
  ASSERT_GE(seen.size(), 12U);
  EXPECT_THAT(std::vector<std::string>(seen.begin(), seen.begin() + 12),
              ElementsAre("Reading 10 of 40", silent(11, 4), silent(11, 5), silent(11, 6),
                          silent(11, 7), silent(11, 8), silent(12, 8), silent(12, 9),
                          silent(12, 10), silent(12, 11), silent(13, 12), "Reading 14 of 40"));
  EXPECT_EQ(seen.back(), "Reading 40 of 40");
  EXPECT_GE(clock.size(), 9U);  // one a second
  EXPECT_FALSE(Visible("barRun"));
  EXPECT_FALSE(Visible("NoAnswer"));
}

TEST_F(ReadProgressTest, RowsOfALinkThatIsOverAreDimmedAndTellTheirTime) {
  StartConnected();
  EXPECT_FALSE(Visible("LastRead"));
  const std::string readAt = "08:00:06";
  Run(Seconds(100));
  // A read without all of its answers does not count.
  Faults().SilentFrom = Radio().CommandCount() + 30;
  ASSERT_TRUE(Refresh());
  Faults() = {};
  ExpectBox("Click Cancel to quit, OK to ignore.");
  Unplug();
  Run(Seconds(1));
  EXPECT_EQ(Text("LastRead"), "Last read " + readAt);
  EXPECT_TRUE(As<ValueField>("Mode").Stale());
  EXPECT_FALSE(As<ValueField>("XMAP").Stale());
  ExpectInput("Program Owner's Message");
  EXPECT_TRUE(Click("OwnerMessage"));
  EXPECT_EQ(Text("LastRead"),
            "The radio is not connected. These values were read at " + readAt + ".");
  // Each row is fresh from its own answer on.
  Plug();
  OnCommand("mode", [&] {
    EXPECT_EQ(Text("LastRead"), "Last read " + readAt);
    EXPECT_FALSE(As<ValueField>("SerialNumber").Stale());
    EXPECT_TRUE(As<ValueField>("Mode").Stale());
  });
  ASSERT_TRUE(Connect());
  for (const SettingRow& row : Main().Rows) EXPECT_FALSE(row.Stale()) << row.Name();
  EXPECT_FALSE(Visible("LastRead"));

  // The last question of a read has no answer when the link ends in it.
  OnCommand("options", [&] { EXPECT_TRUE(Click("tbr_Disconnect")); });
  ASSERT_TRUE(Refresh());
  EXPECT_TRUE(Visible("LastRead"));
}

}  // namespace
}  // namespace quillmark
