// What becomes of the file, and of the one that stood there, when it can't be written.

#include <unistd.h>

#include <optional>

#include "config_bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;

using SavedFileTest = ConfigBench;

TEST_F(SavedFileTest, TargetsThatCannotBeWritten) {
  StartConnected();
  std::filesystem::create_directory(InScratch("folder"));
  const std::filesystem::path targets[] = {InScratch("folder"), "/dev/full",
                                           InScratch("missing") / "file.txt"};
  for (const auto& target : targets) {
    SCOPED_TRACE(target);
    if (std::filesystem::exists(target)) ExpectBox("File I/O Error").Reply(Answer::Yes);
    ExpectSaveFile("Radio Configuration Save").Choose(target);
    ExpectNotSaved(target);
    ASSERT_TRUE(Click("cmdSaveToFile"));
    ExpectIdle();
    ASSERT_TRUE(Refresh());
  }
  // Without a port, no file is asked for.
  Port().SetPortOpen(false);
  ASSERT_TRUE(Click("cmdSaveToFile"));
}

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
    OnCommand("unit", [&] { EXPECT_EQ(Contents(copies / "f.txt.bak"), "old"); });
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

}  // namespace
}  // namespace quillmark
