#include "config/config_bench.h"

namespace quillmark {
namespace {

class RowFilterTest : public ConfigBench {
 public:
  RowFilterTest() { Store("Preferences", "History", "True"); }

  // The rows in view, the notice, and the entries with a check mark.
  std::string View() {
    std::string view;
    for (const SettingRow& row : Main().Rows) {
      if (row.Visible()) view += std::string(row.What.Word) + " ";
    }
    return view + "| " + (Visible("Filtered") ? Text("Filtered") : "") + "|" +
           (Checked("mnuFilterFactory") ? " factory" : "") +
           (Checked("mnuFilterCopy") ? " copy" : "");
  }
};

TEST_F(RowFilterTest, TheTwoFiltersShowWhatHasChangedAndTheNoticeEndsThem) {
  UseRadio({.Revision = "3.2.0", .Mode = 'R'});
  Start();
  const std::string unread = View();
  ASSERT_TRUE(Click("mnuFilterCopy"));
  EXPECT_EQ(View(),
            "| There is no copy to compare with: no radio has been read. Click here to show "
            "all.| copy");
  ASSERT_TRUE(Click("mnuFilterFactory"));
  EXPECT_EQ(View(),
            "| Only settings changed from factory are shown (0). Click here to show all.| factory");
  ASSERT_TRUE(Click("mnuFilterFactory"));
  EXPECT_EQ(View(), unread);

  ASSERT_TRUE(Connect());
  const std::string all = View();
  Radio().Program("own", "Hill");
  Radio().Program("pwr", "27");
  Radio().Program("dlink", "4800");
  ASSERT_TRUE(Refresh());
  ASSERT_TRUE(Click("mnuFilterFactory"));
  EXPECT_EQ(View(),
            "pwr dlink | Only settings changed from factory are shown (2). Click here to show "
            "all.| factory");
  EXPECT_EQ(FrontFrame(), "NetSet_0");
  EXPECT_EQ(Main().SettingsTab.Caption(0), "Radio Settings 1 (1)");
  // The read has kept a copy of what the rows show now: the one before counts.
  ASSERT_TRUE(Click("mnuFilterCopy"));
  EXPECT_EQ(View(),
            "own pwr dlink | Only settings changed since the copy of 2026-01-01 08:00:06 are shown "
            "(3). Click "
            "here to show all.| copy");
  // What is left out is still read, can be restored to the view, and has kept its rules.
  Radio().Program("pwr", "30");
  Radio().Program("rxd", "5");
  ASSERT_TRUE(Refresh());
  EXPECT_EQ(View(),
            "pwr rxd | Only settings changed since the copy of 2026-01-01 08:00:08 are shown (2). "
            "Click here "
            "to show all.| copy");
  ASSERT_TRUE(Click("Filtered"));
  EXPECT_EQ(View(), all);
  EXPECT_EQ(Main().SettingsTab.Caption(0), "Radio Settings 1");
}

}  // namespace
}  // namespace quillmark
