// What becomes of the file, and of the one that stood there, when it can't be written.

#include <unistd.h>

#include <optional>

#include "config/config_bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

using SavedFileTest = ConfigBench;

// Somebody has protected it, though the folder's right would allow to put another in its place.
TEST_F(SavedFileTest, AReadOnlyFileStays) {
  using std::filesystem::perms;
  StartConnected();
  std::filesystem::permissions(Write(InScratch("f.txt"), "old"), perms{0444});
  std::filesystem::permissions(ScratchFolder(), perms::all);
  const uid_t user = geteuid();
  // Nothing is read-only for root.
  if (user == 0 && seteuid(65534) != 0) GTEST_SKIP();
  ExpectBox("File I/O Error").Reply(Answer::Yes);
  ExpectNotSaved(InScratch("f.txt"));
  EXPECT_EQ(Save("f.txt"), "old");
  EXPECT_EQ(seteuid(user), 0);
  EXPECT_FALSE(std::filesystem::exists(InScratch("f.txt.bak")));
}

TEST_F(SavedFileTest, AFullDiskIsSaidAndCostsTheOldFileNothing) {
  StartConnected();
  Write(InScratch("f.txt"), "old");
  std::filesystem::create_symlink("nowhere", InScratch("f.txt.bak"));  // that name is taken
  for (const std::string name : {"f.txt", "f.txt", "new.txt"}) {
    SCOPED_TRACE(name);
    if (name == "f.txt") ExpectBox("File I/O Error").Reply(Answer::Yes);
    ExpectNotSaved(InScratch(name));
    const LimitedFiles limited(300);
    EXPECT_EQ(Save(name), name == "f.txt" ? "old" : "");
    EXPECT_TRUE(Radio().Echo());
    ExpectIdle();
  }
  EXPECT_FALSE(std::filesystem::exists(InScratch("new.txt")));
  EXPECT_FALSE(std::filesystem::exists(InScratch("f.txt.bak2")));
}

// Nothing can be put beside such a file, so it is written in place, with a copy of the old content.
TEST_F(SavedFileTest, AFileInALockedFolderIsWrittenInPlace) {
  using std::filesystem::perms;
  StartConnected();
  const auto file = Write(ScratchFolder() / "locked" / "f.txt", "old");
  const auto copies = DataFolder() / "Replaced";
  std::filesystem::permissions(file, perms{0666});
  std::filesystem::permissions(file.parent_path(), perms{0555});
  std::filesystem::create_directories(DataFolder());
  for (const auto& folder : {ScratchFolder(), DataFolder()}) {
    std::filesystem::permissions(folder, perms::all);
  }
  const uid_t user = geteuid();
  // Nothing is locked for root.
  if (user == 0 && seteuid(65534) != 0) GTEST_SKIP();
  for (const char* way : {"full disk", "complete", "silent radio"}) {
    SCOPED_TRACE(way);
    ExpectBox("File I/O Error").Reply(Answer::Yes);
    std::optional<LimitedFiles> limited;
    if (std::string(way) == "full disk") {
      ExpectNotSaved(file);
      limited.emplace(300);
    } else if (std::string(way) == "silent radio") {
      ExpectBox("Radio Communications Error");
      Faults().SilentFrom = Faults().SilentUntil = Radio().CommandCount() + 8;
    }
    OnCommand("unit", [&] { EXPECT_EQ(FileText(copies / "f.txt.bak"), "old"); });
    const std::string saved = Save("locked/f.txt");
    if (std::string(way) == "complete") {
      EXPECT_THAT(saved, HasSubstr("Diagnostics"));
      Write(file, "old");
    } else {
      EXPECT_EQ(saved, "old");
    }
    EXPECT_TRUE(std::filesystem::is_empty(copies));
    ASSERT_TRUE(Refresh());
  }
  EXPECT_EQ(seteuid(user), 0);
}

TEST_F(SavedFileTest, AReportGoesToThePrinterAndNowhereElse) {
  StartConnected();
  const auto temp = DataFolder() / "Temp";
  const struct {
    const char *Serial, *File;
  } cases[] = {{"SN 00123456", "00123456.txt"},
               {"", "config.txt"},
               {"n/a", "config.txt"},
               {"SN ../../x\"/", "x.txt"},
               {"abcdefghij", "defghij.txt"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Serial);
    Main().At(SettingId::SerialNumber).Text = each.Serial;
    ExpectPrinter(each.File).ChoosePrinter("Office").Do(
        [this] { EXPECT_EQ(Text("pnl_Status"), "Printing"); });
    ASSERT_TRUE(Click("cmdPrint"));
    const auto& printed = DesktopSeen().Prints.back();
    EXPECT_EQ(printed.Target.Printer, "Office");
    EXPECT_EQ(printed.File, temp / each.File);
    EXPECT_THAT(printed.Text, StartsWith("\r\n\r\n#Created by"));
    EXPECT_THAT(Text("txtTerm"), HasSubstr("\r\nPRINTING..."));
    ExpectIdle();
    ASSERT_TRUE(Refresh());
  }
  DesktopSeen().Prints.clear();
  ExpectPrinter("00123456.txt");  // cancelled
  ASSERT_TRUE(Click("cmdPrint"));
  EXPECT_TRUE(DesktopSeen().Prints.empty());
  Restart();
  EXPECT_TRUE(std::filesystem::is_empty(temp));
  // Only the program's own folder is emptied, not what a link in its place leads to.
  Write(InScratch("mine") / "letter.txt", "kept");
  std::filesystem::remove(temp);
  std::filesystem::create_directory_symlink(InScratch("mine"), temp);
  Restart();
  EXPECT_EQ(FileText(temp / "letter.txt"), "kept");
}

}  // namespace
}  // namespace quillmark
