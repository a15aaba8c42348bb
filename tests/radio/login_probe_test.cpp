#include <gmock/gmock.h>

#include <string>

#include "sim/bench.h"

namespace quillmark {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

// The probe programs the owner's name with what it holds: the one write that a connect makes.
class LoginProbeTest : public sim::Bench {};

TEST_F(LoginProbeTest, RunsOnceForEachConnect) {
  UseRadio({.Password = "abcd"});
  Start();
  ASSERT_TRUE(Connect());
  const auto commands = SentCommands();
  const auto at = std::find(commands.begin(), commands.end(), "deco");
  ASSERT_NE(at, commands.end());
  EXPECT_THAT(std::vector<std::string>(at - 1, at + 4),
              ElementsAre("own", "deco", "own Quillmark SS", "eeco", "owm"));
  EXPECT_TRUE(Enabled("tbr_Login"));
  EXPECT_FALSE(Enabled("tbr_Logout"));
  EXPECT_TRUE(Radio().Echo());
  EXPECT_THAT(Text("txtTerm"), Not(HasSubstr("own Quillmark SS")));
  ClearLog();
  ASSERT_TRUE(Refresh());
  EXPECT_THAT(SentCommands(), Not(Contains("deco")));
  ASSERT_TRUE(Click("tbr_Disconnect"));
  UseRadio({.Password = "abcd", .LoggedIn = true});
  ASSERT_TRUE(Connect());
  EXPECT_FALSE(Enabled("tbr_Login"));
  EXPECT_TRUE(Enabled("tbr_Logout"));
}

TEST_F(LoginProbeTest, NeverChangesTheOwnersName) {
  Start();
  const auto expectUntouched = [&](const std::string& name) {
    EXPECT_EQ(Radio().Setting("own"), name);
    ASSERT_TRUE(Refresh());  // the probe comes when the name has been read
    EXPECT_EQ(Radio().Setting("own"), name);
    ASSERT_TRUE(Click("tbr_Disconnect"));
  };
  // The name was not answered; the row shows another radio's, or none.
  UseRadio({});
  Faults().NoPromptAt = 5;  // own, behind the escape, OPEN, ser, unit and srev
  for (int command = 4; command <= 8; ++command) {
    UseRadio({});
    Faults().NoPromptAt = command;
    ASSERT_TRUE(Connect());
    expectUntouched("Quillmark SS");
  }
  // A carriage return typed in the middle of the reads before it.
  for (const char* command : {"ser", "unit", "srev", "own"}) {
    UseRadio({});
    OnCommand(command, [&] { Type("txtTerm", "\r"); });
    ASSERT_TRUE(Connect());
    expectUntouched("Quillmark SS");
  }
  // A name that can't be read to its end.
  UseRadio({});
  ASSERT_TRUE(Radio().Program("own", "Site>7 Pump house"));
  ASSERT_TRUE(Connect());
  EXPECT_THAT(SentCommands(), Not(Contains("deco")));
  expectUntouched("Site>7 Pump house");
}

TEST_F(LoginProbeTest, ASlowRadiosRepliesStayApart) {
  for (const int think : {60, 150, 400}) {
    SCOPED_TRACE(think);
    UseRadio({.Mode = 'M', .ThinkTime = Milliseconds(think)});
    think == 60 ? Start() : Restart();
    ASSERT_TRUE(Connect(Seconds(200)));
    EXPECT_EQ(Text("OwnerMessage"), "Bench radio");
    EXPECT_EQ(Text("Temperature"), "TEMP 31 C");
    EXPECT_EQ(Text("Mode"), "MODE M");
    EXPECT_EQ(Text("Port"), "PORT RS232");
    EXPECT_EQ(Radio().Setting("own"), "Quillmark SS");
    EXPECT_TRUE(Quit());
  }
}

TEST_F(LoginProbeTest, EndedInItsMiddleItLeavesTheEchoOn) {
  Start();
  OnCommand("deco", [&] { Click("tbr_Disconnect"); });
  ExpectBox("Error");
  Connect(Seconds(10));
  EXPECT_TRUE(Radio().Echo());
  EXPECT_EQ(SentCommands().back(), "CLOS");
  Restart();
  OnCommand("deco", [&] { EXPECT_TRUE(Quit()); });
  Connect(Seconds(10));
  EXPECT_TRUE(Ended());
  EXPECT_TRUE(Radio().Echo());
}

}  // namespace
}  // namespace quillmark
