// What stands among the copies and is none, in the window of the radio history.

#include <sys/stat.h>

#include "history/history_window_bench.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

using OddCopiesTest = HistoryWindowBench;

TEST_F(OddCopiesTest, WhatIsNoSoundCopyIsToldAndNeverFollowedOrChanged) {
  const fs::path sound = Keep("7", {"OWN secret", "PWR 30"});
  const std::string text = FileText(sound);
  const fs::path elsewhere = Write(InScratch("elsewhere.txt"), text);
  const fs::path seven = Folder() / "7";
  std::string changed = text;
  changed.replace(changed.find("PWR 30"), 6, "PWR 20");
  Write(seven / "2025-07-01_10-00-00.txt", text.substr(0, text.size() / 2));
  Write(seven / "2025-07-02_10-00-00.txt", changed);
  Write(seven / "2025-07-03_10-00-00.txt", std::string(3'000'000, 'x'));
  fs::create_symlink(elsewhere, seven / "2025-07-04_10-00-00.txt");
  fs::create_directory(seven / "2025-07-05_10-00-00.txt");
  ASSERT_EQ(mkfifo((seven / "2025-07-06_10-00-00.txt").c_str(), 0600), 0);
  Write(seven / "zz notes.txt", "");
  fs::create_directory_symlink(seven, Folder() / "8");
  fs::create_directory(Folder() / "no serial number");
  Write(Folder() / "no serial number" / "2025-07-01_10-00-00.txt", text);
  const struct {
    const char *File, *Row;
    bool Compare, Change, Plain;
  } cases[] = {
      {"2025-06-15_15-06-40", "2025-06-15 16:06:40|read||||\n", false, true, true},
      {"2025-07-01_10-00-00", "2025-07-01 11:00:00||||cut short|\n", false, false, true},
      {"2025-07-02_10-00-00", "2025-07-02 11:00:00|read|||changed by hand; PWR 30 to 20|\n", true,
       false, true},
      {"2025-07-03_10-00-00", "2025-07-03 11:00:00||||can't be read|\n", false, false, true},
      {"2025-07-04_10-00-00", "2025-07-04 11:00:00||||a link, not followed|\n", false, false,
       false},
      {"2025-07-05_10-00-00", "2025-07-05 11:00:00||||a folder|\n", false, false, false},
      {"2025-07-06_10-00-00", "2025-07-06 11:00:00||||no plain file|\n", false, false, false},
      {"zz notes", "zz notes.txt||||cut short|\n", false, false, true},
  };
  Open();
  EXPECT_EQ(Rows(Radios()), "7||secret|2025-07-06 11:00:00|\n");
  std::string rows;
  for (const auto& each : cases) {
    SCOPED_TRACE(each.File);
    rows.insert(0, each.Row);
    Choose({seven / (std::string(each.File) + ".txt")});
    EXPECT_EQ(Enabled("frmHistory.tbr_Compare"), each.Compare);
    EXPECT_EQ(Enabled("frmHistory.tbr_Pin"), each.Change);
    EXPECT_EQ(Enabled("frmHistory.tbr_Name"), each.Change);
    EXPECT_EQ(Enabled("frmHistory.tbr_Delete"), each.Plain);
  }
  EXPECT_EQ(Rows(Copies()), rows);
  // Meanwhile a link has come in the place of a copy.
  Choose({sound});
  fs::remove(sound);
  fs::create_symlink(elsewhere, sound);
  ExpectBox("Pin").Containing("gone, or no sound copy");
  ASSERT_TRUE(Click("frmHistory.tbr_Pin"));
  EXPECT_EQ(FileText(elsewhere), text);
  EXPECT_TRUE(fs::is_symlink(sound));
  // Deleting it deletes neither the link nor what is behind it.
  fs::remove(sound);
  Write(sound, text);
  ASSERT_TRUE(Click("frmHistory.tbr_Refresh"));
  Choose({sound});
  fs::remove(sound);
  fs::create_symlink(elsewhere, sound);
  ExpectBox("Delete").Reply(Answer::Yes);
  ExpectBox("Delete").Containing("it is gone, or no plain file");
  ASSERT_TRUE(Click("frmHistory.tbr_Delete"));
  EXPECT_TRUE(fs::exists(elsewhere) && fs::is_symlink(sound));
}

}  // namespace
}  // namespace quillmark
