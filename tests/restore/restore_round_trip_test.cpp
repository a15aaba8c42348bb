#include "restore_bench.h"

namespace quillmark {
namespace {

class RestoreRoundTrip : public RestoreBench {
 public:
  // What the radio holds in the rows that can be ticked and sent.
  std::string EnabledTexts() {
    std::string text;
    for (RestoreRowControls& row : Window().Rows) {
      if (row.Check.Enabled() && row.New.Text() != "n/a") text += row.Current.Text() + "\n";
    }
    return text;
  }
};

// Each setting by name: one that a row, a key or a file lacks never arrives.
TEST_F(RestoreRoundTrip, OneRadioIsSavedAndAnotherTakesItsSettings) {
  std::set<std::string> arrived;
  for (const std::string revision : {"1.9.0", "2.0.0", "3.1.0", "3.2.0"}) {
    for (const char mode : {'M', 'R', 'X'}) {
      SCOPED_TRACE(revision + mode);
      StartOdd({.Revision = revision, .Mode = mode});
      std::string first;
      InWindow([&] {
        Save();
        Load(InScratch("window.txt"));
        first = EnabledTexts();
      });
      const Holdings sent = HoldingsOf(Radio());
      UseRadio({.Revision = revision, .Mode = mode});
      const Holdings before = HoldingsOf(Radio());
      ASSERT_TRUE(Refresh());
      InWindow([&] {
        Load(InScratch("window.txt"));
        EXPECT_NE(EnabledTexts(), first);
        ASSERT_TRUE(Click("CheckAllButton"));
        ASSERT_TRUE(Click("tbr_ProgramRadio"));
        EXPECT_TRUE(WaitForRead());
        EXPECT_EQ(EnabledTexts(), first);
        EXPECT_EQ(Ticks(), "");
        for (RestoreRowControls& row : Window().Rows) {
          const bool both = row.Check.Enabled() && row.New.Text() != "n/a";
          const auto match = row.Match();
          EXPECT_TRUE(!both || match == RestoreMatch::Equal) << row.Row.Word;
        }
      });
      arrived.merge(Arrived(sent, before, HoldingsOf(Radio())));
      EndSession();
    }
  }
  // Both radios have one mode; the ends of a range become a map.
  EXPECT_EQ(Astray(arrived, {"mode", "xmin", "xmax"}), "");
}

// The two kinds of files differ in header, comments, order and colons, not in what a row gets.
TEST_F(RestoreRoundTrip, AFileOfTheMainWindowLoadsAsOneOfThisWindow) {
  for (const char mode : {'M', 'R'}) {
    SCOPED_TRACE(mode);
    StartOdd({.Mode = mode});
    const std::string name = std::string("main") + mode + ".txt";
    ExpectSaveFile("Radio Configuration Save").Choose(InScratch(name));
    ASSERT_TRUE(Click("cmdSaveToFile"));
    InWindow([&] {
      Load(InScratch(name));
      std::string fromMain = RowTexts(false);
      EXPECT_EQ(Text("FileSettingsLabel"), "Settings in file\r" + name + ":");
      std::string boxes = EnabledBoxes();
      Save();
      Load(InScratch("window.txt"));
      // What the one does not save.
      const auto replace = [&](const std::string& from, const std::string& to) {
        const std::size_t at = fromMain.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        fromMain.replace(at, from.size(), to);
      };
      replace("ALARM ACTIVE LO", "ALARM ACTIVE: LO");
      replace("rtu=n/a", "rtu=RTU 5 (ON)");
      if (mode == 'R') replace("rxtot=RXTOT 15", "rxtot=n/a");
      EXPECT_EQ(RowTexts(false), fromMain);
      if (mode == 'R') boxes.erase(boxes.find("rxtot "), 6);
      EXPECT_EQ(EnabledBoxes(), boxes + " rtu");
    });
    EndSession();
  }
}

}  // namespace
}  // namespace quillmark
