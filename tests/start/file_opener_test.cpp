#include "config/config_bench.h"
#include "restore/frmRestore.h"
#include "sim/firmware_image.h"

namespace quillmark {
namespace {

const std::string configuration =
    "#With Firmware Version:  77-1234A01 3.2.0\r\nADDR 1234\r\nPWR 21 dBm\r\n";
const std::string question = "Configuration File";

class FileOpenerTest : public ConfigBench {
 public:
  std::filesystem::path File() { return Write(InScratch("north & east.txt"), configuration); }
};

// What is refused sends nothing.
TEST_F(FileOpenerTest, SaysWhyAFileIsRefused) {
  const std::string foreign = " is neither a configuration nor firmware of a radio.";
  std::filesystem::create_directory(InScratch("folder"));
  const struct {
    std::filesystem::path File;
    std::string Text;
  } cases[] = {
      {Write(InScratch("letter.txt"), "Dear radio,\r\nbest regards\r\n"), foreign},
      {Write(InScratch("empty"), ""), foreign},
      {InScratch("folder"), foreign},
      {InScratch("gone.txt"), " not found!"},
      {Write(InScratch("f.s28"), sim::FirmwareImage("3.2.1", 512)),
       "Please connect to a radio first. Then \"f.s28\" can be loaded into it."},
  };
  Start();
  for (const auto& each : cases) {
    const bool named = each.Text.starts_with(' ');
    ExpectBox("File").Containing((named ? each.File.string() : "") + each.Text);
    EXPECT_TRUE(Drop(each.File));
  }
  // Without a radio a configuration is opened; a line written by hand is enough.
  ExpectWindow("frmConfigFile").Do([&] {
    EXPECT_EQ(Text("frmConfigFile.NetworkAddress"), "5");
    EXPECT_TRUE(Click("frmConfigFile.CloseButton"));
  });
  EXPECT_TRUE(Drop(Write(InScratch("hand.txt"), "ADDR 5")));
  EXPECT_EQ(Sent(), "");
}

// Dropped, or chosen among the recent files: the radio gets what the button sends.
TEST_F(FileOpenerTest, ProgramSendsWhatTheButtonSends) {
  std::string byButton;
  const std::function<void()> ways[] = {
      [this] {
        ExpectOpenFile("Radio Configuration Restore").Choose(File());
        EXPECT_TRUE(Click("cmdProgramFromFile"));
      },
      [this] {
        ExpectBox(question).Containing("\"north & east.txt\"").Reply(Answer::Yes);
        EXPECT_TRUE(Drop(File()));
      },
      [this] {
        ExpectBox(question).Reply(Answer::Yes);
        EXPECT_TRUE(Click("mnuRecentFile_0"));
      },
  };
  for (const auto& way : ways) {
    StartConnected();
    way();
    if (byButton.empty()) byButton = Sent();
    EXPECT_THAT(Sent(), ::testing::EndsWith("ADDR 1234\rPWR 21 dBm\r"));
    EXPECT_EQ(Sent(), byButton);
    ExpectIdle();
    ASSERT_TRUE(Quit());
    Restart();
  }
}

TEST_F(FileOpenerTest, CompareLoadsTheFileWhenTheRadioHasBeenRead) {
  StartConnected();
  ExpectBox(question).Reply(Answer::No);
  ExpectWindow("frmRestore").Do([this](Form& form) {
    auto& window = dynamic_cast<frmRestore&>(form);
    const auto& row = window.At(SettingId::NetworkAddress);
    EXPECT_TRUE(RunUntil([&] { return row.New.Text() == "ADDR 1234"; }, Seconds(90)));
    EXPECT_NE(row.Current.Text(), "n/a");
    EXPECT_TRUE(RunUntil([&] { return window.ReadIdle; }));
    form.UserClose();
  });
  ASSERT_TRUE(Drop(File()));
  RunUntil([this] { return !WindowOpen("frmRestore"); });
  EXPECT_EQ(Text("mnuRecentFile_0"), "&1 north && east.txt");
}

TEST_F(FileOpenerTest, FirmwareGoesTheUpgradesRoad) {
  StartConnected();
  const auto file = Write(InScratch("old.s28"), sim::FirmwareImage("1.0.0", 512));
  ExpectBox("Firmware File").Containing("\"old.s28\"").Reply(Answer::Yes);
  ExpectBox("Warning!").Containing("version 1.0.0").Reply(Answer::No);
  ASSERT_TRUE(Drop(file));
  ExpectBox("Firmware File");
  ASSERT_TRUE(Drop(file));
  EXPECT_EQ(Sent(), "");
}

// No box may come up in the middle of a run: it would hold the run up.
TEST_F(FileOpenerTest, ARunIsNotHeldUp) {
  StartConnected();
  OnCommand("xaddr", [this] {
    EXPECT_FALSE(Main().mnuRecent.Reachable());
    EXPECT_TRUE(Drop(File()));
    EXPECT_EQ(Text("FileDone"), "\"north & east.txt\" was not opened: the radio is busy.");
    EXPECT_EQ(DesktopSeen().Beeps, 1);
  });
  EXPECT_THAT(Save(), ::testing::HasSubstr("DLINK"));
}

TEST_F(FileOpenerTest, TheManualStaysBesideTheConsoleAndVersionsCanBeCopied) {
  Start();
  ASSERT_TRUE(Click("mnuManual"));
  ASSERT_TRUE(Click("mnuManual"));
  EXPECT_TRUE(WindowOpen("frmHelp"));
  const std::string versions = "Quillmark Console 1.0.0\r\nToolkit 1.2\r\nSystem 3";
  ExpectBox("Versions").Saying(versions);
  ASSERT_TRUE(Click("mnuVersions"));
  EXPECT_EQ(DesktopSeen().Copied, "");
  ExpectBox("Versions").Reply(Answer::Ok);
  ASSERT_TRUE(Click("mnuVersions"));
  EXPECT_EQ(DesktopSeen().Copied, versions);
}

}  // namespace
}  // namespace quillmark
