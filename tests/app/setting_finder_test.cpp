#include <gtest/gtest.h>

#include "window_bench.h"

namespace quillmark {
namespace {

class SettingFinderTest : public WindowBench {
 public:
  std::string FoundRows() {
    std::string names;
    for (const SettingRow& row : Main().Rows) {
      if (row.Found()) names += row.Name();
    }
    return names;
  }
};

TEST_F(SettingFinderTest, QueriesFindCaptionsWordsValuesAndExplanations) {
  StartConnected({.Revision = "3.2.0", .Mode = 'R'});
  Radio().Program("pwr", "27");
  ASSERT_TRUE(Refresh());
  // What is typed, the row that it leads to, and what the bar says.
  struct Row {
    const char* Query;
    const char* Row;
    const char* Says;
  };
  const Row rows[] = {
      {"pwr", "PowerLevel", "1 of 2: Power Level, Radio Settings 1"},
      {" POWER  lev ", "PowerLevel", "1 of 1: Power Level, Radio Settings 1"},
      {"level power", "PowerLevel", "1 of 1: Power Level, Radio Settings 1"},
      {"27 dBm", "PowerLevel", "1 of 1: Power Level, Radio Settings 1"},
      {"owner's name", "OwnerName", "1 of 1: Radio Model, GENERAL"},
      {"passive, non-intrusive", "DTYPE",
       "1 of 1: DTYPE, Network Wide Diagnostics (in its explanation)"},
      {"xmin", "", "Not found"},  // of an older revision
      {"no such thing", "", "Not found"},
      {"  ", "", ""},
      {"", "", ""},
  };
  ASSERT_TRUE(Click("mnuFind"));
  EXPECT_EQ(Main().Focus(), &Main().txtFind);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.Query);
    ASSERT_TRUE(Edit("txtFind", "?") && Edit("txtFind", row.Query));
    EXPECT_EQ(FoundRows(), row.Row);
    EXPECT_EQ(Text("lblFound"), row.Says);
  }
}

TEST_F(SettingFinderTest, StepsGoRoundAndTheRowOpensItsBox) {
  StartConnected({.Revision = "3.2.0", .Mode = 'R'});
  ASSERT_EQ(FrontFrame(), "frQuick");
  ASSERT_TRUE(Click("mnuFind") && Edit("txtFind", "cts"));
  std::string walk;
  for (int step = 0; step < 3; ++step) {
    walk += FoundRows() + " on " + FrontFrame() + "\n";
    ASSERT_TRUE(Click("cmdFindNext"));
  }
  ASSERT_TRUE(Click("cmdFindPrevious"));
  EXPECT_EQ(walk, "CTSdelay on NetSet_1\nCTSHOLDdelay on NetSet_1\nMode on NetSet_0\n");
  EXPECT_EQ(Text("lblFound"), "3 of 5: Radio Mode, Radio Settings 1 (in its explanation)");
  ASSERT_TRUE(Click("cmdFindGo"));
  EXPECT_FALSE(Visible("findStrip"));
  EXPECT_EQ(FoundRows(), "");
  EXPECT_EQ(Main().Focus()->Name(), "Mode");
}

}  // namespace
}  // namespace quillmark
