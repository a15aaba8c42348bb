#include "session/chosen_files.h"

#include <algorithm>

#include "config/config_bench.h"
#include "config/suggested_name.h"

namespace quillmark {
namespace {

TEST(SuggestedNameTest, HoldsNothingThatIsNoPartOfAName) {
  constexpr std::int64_t lastSecond = 1'767'225'599;  // of 2025
  const struct {
    std::string Row, Name;
  } cases[] = {
      {"SN 00123456", "00123456 2025-12-31.txt"},
      {"SN ../../home/.profile", "homeprofile 2025-12-31.txt"},
      {"SN a\\b:c*?\"<>|\r\n\x1b\xff", "abc 2025-12-31.txt"},
      {"SN " + std::string(300, '7'), std::string(40, '7') + " 2025-12-31.txt"},
      {"SN ...", "radio 2025-12-31.txt"},
      {"n/a", "radio 2025-12-31.txt"},
      {"", "radio 2025-12-31.txt"},
  };
  for (const auto& each : cases) EXPECT_EQ(SuggestedName(each.Row, lastSecond), each.Name);
}

class ChosenFilesTest : public ConfigBench {
 public:
  std::string RecentEntries() {
    std::string entries;
    for (const MenuItem& entry : Main().mnuRecentFile) {
      if (entry.Visible()) entries += entry.Text() + "|";
    }
    return entries;
  }
};

// The same in the next session; each kind keeps to its own folder.
TEST_F(ChosenFilesTest, DialogsOpenWhereTheLastFileOfTheirKindLay) {
  const auto configurations = ScratchFolder() / "sites \xC3\xA4&b";
  const auto logs = ScratchFolder() / "logs";
  std::filesystem::create_directories(configurations);
  std::filesystem::create_directories(logs);
  const std::string name = "00123456 2026-01-01.txt";
  StartConnected();
  ExpectSaveFile("Radio Configuration Save").Offering(name).Choose(configurations / "a.txt");
  ASSERT_TRUE(Click("cmdSaveToFile"));
  // Six lines are the head, and one setting has two.
  const auto lines = std::ranges::count(FileText(configurations / "a.txt"), '\n');
  EXPECT_EQ(Text("FileDone"), "Saved " + std::to_string(lines - 7) + " settings to " +
                                  (ScratchFolder() / "sites \xE4&b/a.txt").string() + ".");
  EXPECT_EQ(RecentEntries(), "&1 a.txt|");
  ExpectSaveFile("Open a Communications Log File").Offering("").Choose(logs / "x.log");
  ExpectBox("Open a Communications Log File").Reply(Answer::Yes);
  ASSERT_TRUE(Click("mnuOpenLog"));
  ASSERT_TRUE(Quit());
  Restart();
  StartConnected();
  EXPECT_EQ(RecentEntries(), "&1 a.txt|");
  ExpectOpenFile("Firmware Upgrade File Selection").Offering("");
  ASSERT_TRUE(Click("mnuSendText"));
  ExpectSaveFile("Open a Communications Log File").Offering((logs / "").string());
  ASSERT_TRUE(Click("mnuOpenLog"));
  ExpectSaveFile("Radio Configuration Save").Offering((configurations / name).string());
  ASSERT_TRUE(Click("cmdSaveToFile"));
  EXPECT_FALSE(Visible("FileDone"));
  std::filesystem::remove_all(configurations);
  ExpectOpenFile("Radio Configuration Restore").Offering("");
  ASSERT_TRUE(Click("cmdProgramFromFile"));
}

TEST_F(ChosenFilesTest, TheListHoldsTheLastEightFilesEachOnce) {
  for (int file = 1; file <= 9; ++file) {
    NoteConfiguration(Machine().Preferences, "/sites/" + std::to_string(file) + " & co.txt");
  }
  NoteConfiguration(Machine().Preferences, "/sites/north/../5 & co.txt");
  Start();
  EXPECT_EQ(RecentEntries(),
            "&1 5 && co.txt|&2 9 && co.txt|&3 8 && co.txt|&4 7 && co.txt|&5 6 && co.txt|"
            "&6 4 && co.txt|&7 3 && co.txt|&8 2 && co.txt|");
  EXPECT_EQ(ToolTip("mnuRecentFile_0"), "/sites/5 & co.txt");
}

// Until its own read has come, the rows show the number of the radio before.
TEST_F(ChosenFilesTest, ARadioThatWasNotReadYetIsNotNamed) {
  StartConnected();
  ASSERT_TRUE(Click("tbr_Disconnect"));
  UseRadio({.SerialNumber = "00654321"});
  ASSERT_TRUE(Click("tbr_Connect"));
  ExpectBox("MASTER").Reply(Answer::No);
  ASSERT_TRUE(Click("cmdMaster"));
  ExpectWarned("This clears all settings of the radio first.");
  ExpectSaveFile("Radio Configuration Save").Offering("radio 2026-01-01.txt");
  ASSERT_TRUE(Click("cmdSaveToFile"));
}

}  // namespace
}  // namespace quillmark
