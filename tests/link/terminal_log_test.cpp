#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "link/terminal_bench.h"

namespace quillmark {
namespace {

using TerminalLogTest = TerminalBench;

TEST_F(TerminalLogTest, ALogIsOpenedReplacedAppendedToAndClosed) {
  StartEmpty();
  const auto log = OpenLog("a.log");
  EXPECT_EQ(Text("frmOrvalent"), "Radio Terminal - a.log");
  EXPECT_FALSE(Enabled("mnuOpenLog"));
  EXPECT_FALSE(Enabled("tbr_OpenLogFile"));
  EXPECT_TRUE(Enabled("mnuCloseLog"));
  RadioSays("first\b\bST\r");
  ASSERT_TRUE(Click("tbr_CloseLogFile"));
  EXPECT_EQ(FileText(log), "firST\r\n");
  EXPECT_EQ(Text("frmOrvalent"), "Radio Terminal - a.log");
  EXPECT_TRUE(Enabled("tbr_OpenLogFile"));
  EXPECT_FALSE(Enabled("mnuCloseLog"));

  const auto question = [&]() -> sim::Expectation& {
    return ExpectBox(ProgramTitle)
        .Saying("Replace existing file - " + log.string() +
                "?\r\rClick 'NO' to append to the file.")
        .With(Icon::Question)
        .With(Buttons::YesNoCancel);
  };
  question().Reply(Answer::No);
  OpenLog("a.log");
  RadioSays("second");
  ASSERT_TRUE(Click("mnuCloseLog"));
  EXPECT_EQ(FileText(log), "firST\r\nsecond");

  question().Reply(Answer::Yes);
  OpenLog("a.log");
  RadioSays("third");
  ASSERT_TRUE(Click("mnuCloseLog"));
  EXPECT_EQ(FileText(log), "third");

  // Cancel goes back to the dialog; cancelled there, nothing has changed.
  question().Reply(Answer::Cancel);
  const std::string title = "Open a Communications Log File";
  ExpectSaveFile(title).Choose(log);
  ExpectSaveFile(title);
  ASSERT_TRUE(Click("mnuOpenLog"));
  EXPECT_EQ(FileText(log), "third");
  EXPECT_TRUE(Enabled("mnuOpenLog"));
  // So does No to a new file, which is not created.
  ExpectSaveFile(title).Choose(ScratchFolder() / "slip.log");
  ExpectBox(title).Containing("slip.log does not exist.").Reply(Answer::No);
  ExpectSaveFile(title);
  ASSERT_TRUE(Click("mnuOpenLog"));
  EXPECT_FALSE(std::filesystem::exists(ScratchFolder() / "slip.log"));
}

TEST_F(TerminalLogTest, ALogThatCantBeOpenedHarmsNothing) {
  StartEmpty();
  namespace fs = std::filesystem;
  const fs::path folder = ScratchFolder() / "folder";
  fs::create_directory(folder);
  std::ofstream(folder / "inside.txt") << "kept";
  const struct {
    fs::path Path;
    bool Exists;
    Answer Replace;
  } cases[] = {{folder, true, Answer::Yes},
               {ScratchFolder() / "missing" / "x.log", false, Answer::No},
               {"/dev/full", true, Answer::Yes}};
  for (const auto& each : cases) {
    ExpectSaveFile("Open a Communications Log File").Choose(each.Path);
    if (each.Exists) {
      ExpectBox(ProgramTitle).Containing("Replace existing file").Reply(each.Replace);
    } else {
      ExpectBox("Open a Communications Log File").Reply(Answer::Yes);
    }
    ExpectBox(ProgramTitle).With(Icon::Exclamation);
    ASSERT_TRUE(Click("mnuOpenLog"));
    EXPECT_TRUE(Enabled("mnuOpenLog")) << each.Path;
    EXPECT_FALSE(Enabled("mnuCloseLog")) << each.Path;
  }
  EXPECT_EQ(FileText(folder / "inside.txt"), "kept");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(TerminalLogTest, AFullDiskAsksAndLosesNothingMeanwhile) {
  StartEmpty();
  ExpectSaveFile("Open a Communications Log File").Choose("/dev/full");
  ExpectBox(ProgramTitle).Containing("Replace existing file").Reply(Answer::No);
  ASSERT_TRUE(Click("mnuOpenLog"));
  // Text that comes while the box is up brings no second box.
  ExpectBox(ProgramTitle)
      .Saying("No space left on device")
      .With(Icon::Critical)
      .With(Buttons::RetryCancel)
      .Do([&] {
        RadioSays("more");
        EXPECT_EQ(Boxes().size(), 3U);
      })
      .Reply(Answer::Retry);
  ExpectBox(ProgramTitle).Saying("No space left on device").Reply(Answer::Cancel);
  RadioSays("text");
  EXPECT_FALSE(Enabled("mnuCloseLog"));
  EXPECT_EQ(Text("txtTerm"), "textmore");
  RadioSays(" goes on");
  EXPECT_EQ(Text("txtTerm"), "textmore goes on");
}

TEST_F(TerminalLogTest, ALogThatOthersTouchLosesNothing) {
  StartEmpty();
  const auto log = OpenLog("shared.log");
  RadioSays("one ");
  std::ofstream(log, std::ios::trunc).flush();
  RadioSays("three ");
  EXPECT_EQ(FileText(log), "three ");
  std::filesystem::remove(log);
  RadioSays("four");
  EXPECT_EQ(FileText(log), "four");
}

TEST_F(TerminalLogTest, WhatALongQuestionCostsIsToldInTheLog) {
  UseRadio({.Paced = false});
  StartEmpty({.Paced = false});
  const auto log = OpenLog("long.log");
  std::filesystem::remove(log);
  std::filesystem::create_symlink("/dev/full", log);
  // The log's name now stands for a full disk, until somebody makes room.
  ExpectSaveFile("Open a Communications Log File").Choose(log);
  ExpectBox(ProgramTitle).Containing("Replace existing file").Reply(Answer::No);
  ASSERT_TRUE(Click("tbr_CloseLogFile"));
  ASSERT_TRUE(Click("tbr_OpenLogFile"));
  ExpectBox(ProgramTitle)
      .Saying("No space left on device")
      .Do([&] {
        for (int i = 0; i < 5; ++i) RadioSays(std::string(256 * 1024, 'x'));
        std::filesystem::remove(log);
      })
      .Reply(Answer::Retry);
  RadioSays("head ");
  const std::string text = FileText(log);
  EXPECT_EQ(text.substr(0, 6), "head x");
  const std::string notice = "\r\n*** 524288 characters are missing here ***\r\n";
  EXPECT_EQ(text.substr(text.size() - notice.size()), notice);
}

}  // namespace
}  // namespace quillmark
