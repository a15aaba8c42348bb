#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "sim/bench.h"

namespace quillmark {
namespace {

using ::testing::ElementsAre;

// What users ask for in the middle of a read.
class LineTurnsTest : public sim::Bench {
 public:
  void StartAtMaster() {
    StartConnected({.Mode = 'M'});
    ASSERT_TRUE(Click("ButtonAdv"));
    ExpectInput("Program Power Output Level").Type("25");
    OnCommand("baud", [&] { EXPECT_TRUE(Click("PowerLevel")); });
    OnCommand("port", [&] { EXPECT_TRUE(Click("ShowSync")); });
    OnCommand("device", [&] { EXPECT_TRUE(Type("txtTerm", "owm Mast\r")); });
    OnCommand("amask", [&] { EXPECT_TRUE(Click("ShowSync")); });  // once more is once
    OnCommand("asense", [&] { EXPECT_TRUE(Click("AlarmInfo")); });
  }
  const std::vector<std::string> asked{"pwr 25", "show sync", "owm Mast", "stat"};
};

TEST_F(LineTurnsTest, GoesOutBehindItInTheOrderOfTheirActs) {
  StartAtMaster();
  ASSERT_TRUE(Refresh());
  EXPECT_EQ(SentCommands().back(), "options");
  EXPECT_EQ(Text("PowerLevel"), "PWR 30 dBm");
  ClearLog();
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 3; }));
  const auto sent = SentCommands();
  EXPECT_THAT(std::vector<std::string>(sent.begin(), sent.begin() + 5),
              ElementsAre(asked[0], asked[1], asked[2], asked[3], "ser"));
  EXPECT_EQ(Text("PowerLevel"), "PWR 25 dBm");
  EXPECT_EQ(Text("OwnerMessage"), "Mast");
  EXPECT_FALSE(Application().Talk().Turns.Taken());
}

TEST_F(LineTurnsTest, IsForgottenWithTheLinkItWasMeantFor) {
  StartAtMaster();
  OnCommand("cts", [&] { EXPECT_TRUE(Click("tbr_Disconnect")); });
  ExpectBox("Error");
  EXPECT_FALSE(Refresh(Seconds(20)));
  ASSERT_TRUE(Connect());
  Run(Seconds(10));
  for (const std::string& command : asked) {
    const bool alsoRead = command == "show sync";
    EXPECT_EQ(std::ranges::count(SentCommands(), command), alsoRead ? 1 : 0) << command;
  }
  EXPECT_EQ(Radio().Setting("pwr"), "30 dBm");
}

// A line that was begun in the terminal is not completed by somebody else's command.
TEST_F(LineTurnsTest, ABegunLineHasTheLineUntilItsEndOrIsTakenBack) {
  StartConnected();
  for (const bool finished : {true, false}) {
    Type("txtTerm", "owm Si");
    ASSERT_TRUE(Click("ButtonRefresh"));
    Run(Seconds(4));
    EXPECT_EQ(Sent(), "owm Si");
    if (finished) Type("txtTerm", "te\r");
    Run(Seconds(20));
    EXPECT_EQ(Radio().Setting("owm"), "Site");
    EXPECT_EQ(Text("OwnerMessage"), "Site");
    ClearLog();
  }
}

}  // namespace
}  // namespace quillmark
