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

}  // namespace
}  // namespace quillmark
