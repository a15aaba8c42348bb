#include <algorithm>

#include "config/config_bench.h"
#include "history/copy_store.h"
#include "restore/frmRestore.h"
#include "sim/firmware_image.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class RadioHistoryTest : public ConfigBench {
 public:
  RadioHistoryTest() { Store("Preferences", "History", "True"); }

  std::filesystem::path Folder() const { return DataFolder() / "radios"; }
  // The copies of a radio, oldest first.
  std::vector<std::filesystem::path> Copies(const std::string& radio = "00123456") {
    return CopyStore(Machine().Files).FilesOf(radio);
  }
  std::string Newest() { return Copies().empty() ? "" : FileText(Copies().back()); }
  // Its command lines.
  static std::string Settings(const std::string& text) {
    const std::size_t head = text.find("\r\n\r\n\r\n");
    const std::size_t end = text.find("#End of copy: ");
    return head == std::string::npos || end == std::string::npos
               ? "not whole"
               : text.substr(head + 6, end - head - 6);
  }
  // Without the lines of those settings.
  static std::string Without(std::string text, const std::vector<std::string>& words) {
    for (const std::string& word : words) {
      for (std::size_t at; (at = text.find("\r\n" + word + " ")) != std::string::npos;) {
        text.erase(at, text.find("\r\n", at + 2) - at);
      }
    }
    return text;
  }
};

TEST_F(RadioHistoryTest, EachReadThatBringsSomethingNewKeepsWhatASaveWouldHold) {
  const struct {
    const char* Revision;
    char Mode;
    std::vector<std::string> OnlySaved, OnlyKept;  // words of lines
  } cases[] = {
      {"3.2.0", 'M', {"XMAP"}, {"RTU"}},
      {"3.2.0", 'R', {"XMAP", "XADDR"}, {"RTU"}},
      {"1.9.0", 'M', {"CSADDR"}, {"XMIN", "XMAX"}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.Revision) + each.Mode);
    std::filesystem::remove_all(Folder());
    UseRadio({.Revision = each.Revision, .Mode = each.Mode});
    ProgramOddValues(Radio());
    if (!WindowOpen("frmOrvalent")) Start();
    ASSERT_TRUE(Connect());
    ASSERT_EQ(Copies().size(), 1U);
    const std::string kept = Newest();
    std::filesystem::remove(InScratch("saved.txt"));
    const std::string saved = Save();
    EXPECT_EQ(Without(Settings(kept), each.OnlyKept),
              Without(saved.substr(saved.find("UNIT")), each.OnlySaved));
    EXPECT_THAT(kept, StartsWith(saved.substr(0, saved.find("\r\n\r\n"))));
    EXPECT_THAT(kept, HasSubstr("\r\n#Kept: read\r\n#Time: 2026-01-01_07-"));
    for (const std::string& word : each.OnlyKept) EXPECT_THAT(kept, HasSubstr("\r\n" + word + " "));
    ASSERT_TRUE(Refresh());
    EXPECT_EQ(Copies().size(), 1U);
    Radio().Program("pwr", "27");
    ASSERT_TRUE(Refresh());
    ASSERT_EQ(Copies().size(), 2U);
    EXPECT_THAT(Newest(), HasSubstr("\r\nPWR 27 dBm\r\n"));
    ASSERT_TRUE(Click("tbr_Disconnect"));
  }
  const auto rights = [](const std::filesystem::path& path) {
    return std::filesystem::status(path).permissions();
  };
  using std::filesystem::perms;
  EXPECT_EQ(rights(Folder()), perms::owner_all);
  EXPECT_EQ(rights(Folder() / "00123456"), perms::owner_all);
  EXPECT_EQ(rights(Copies().back()), perms::owner_read | perms::owner_write);
}

TEST_F(RadioHistoryTest, EachRunThatOverwritesIsPrecededByACopyWithTheExtensionMap) {
  StartConnected({.Mode = 'M'});
  ProgramOddValues(Radio());
  ASSERT_TRUE(Refresh());
  const std::filesystem::path file = Write(InScratch("odd.txt"), Save());
  Write(DataFolder() / "Presets" / "Preset1.txt",
        "#PresetFile1\r\n#Name:d\r\n#PresetCaption:c\r\n" + FileText(file));
  Restart();
  ASSERT_TRUE(Connect());
  const auto yes = [this](const std::string& title) { ExpectBox(title).Reply(Answer::Yes); };
  const auto keepUnit = [this] { ExpectInput("Check UNIT number.").Reply(Answer::Cancel); };
  const struct {
    const char* Reason;
    std::function<void()> Act;
  } cases[] = {
      {"before programming a file",
       [&] {
         ExpectOpenFile("Radio Configuration Restore").Choose(file);
         keepUnit();
         ASSERT_TRUE(Click("cmdProgramFromFile"));
       }},
      {"before a preset",
       [&] {
         yes("Program from Preset");
         keepUnit();
         ASSERT_TRUE(Click("cmdPre_0"));
       }},
      {"before role Master",
       [&] {
         yes("MASTER");
         yes("Repeater ?");
         ASSERT_TRUE(Click("cmdMaster"));
       }},
      {"before firmware 3.2.1",
       [&] {
         Random().Fixed = 0.5;
         ExpectOpenFile("Firmware Upgrade File Selection")
             .Choose(Write(InScratch("new.s28"), sim::FirmwareImage("3.2.1", 1024)));
         yes("Erase Current Firmware?");
         ExpectBox("Programmed OK");
         ASSERT_TRUE(Click("mnuSendText"));
       }},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Reason);
    const std::size_t before = Copies().size();
    const std::string held = "\r\nXMAP " + Radio().Setting("xmap") + "\r\n";
    ClearLog();
    each.Act();
    EXPECT_THAT(Sent(), StartsWith("xmap\r"));
    EXPECT_EQ(std::ranges::count(SentCommands(), "xmap"), 1);
    ASSERT_EQ(Copies().size(), before + 1);
    EXPECT_THAT(Newest(), HasSubstr("\r\n#Kept: " + std::string(each.Reason) + "\r\n"));
    EXPECT_THAT(Newest(), HasSubstr(held));
    EXPECT_EQ(ReadCopy(Copies().back()).State, CopyState::Sound);
    ASSERT_TRUE(RunUntil([&] { return !Shared().RefreshRequested; }, Seconds(300)));
    Run(Seconds(10));
  }
}

TEST_F(RadioHistoryTest, AReadThatIsDueComesFirstAndLeavesTheRunItsControls) {
  StartConnected({.Mode = 'M'});
  Radio().Program("pwr", "25");
  Shared().AskForRead();
  bool held = false;
  OnCommand("MODE M", [&] { held = !Enabled("ButtonZoneData") && !Enabled("tbr_Logout"); });
  Program("PWR 21\r\n#With Firmware Version:\r\n");
  EXPECT_TRUE(held);
  EXPECT_THAT(Newest(), HasSubstr("\r\nPWR 25 dBm\r\n"));
}

// What the window has read, not what the main window read before.
TEST_F(RadioHistoryTest, RestoredRowsArePrecededByWhatTheWindowShows) {
  StartConnected({.Mode = 'M'});
  ExpectWindow("frmRestore").Do([this](Form& form) {
    auto& window = dynamic_cast<frmRestore&>(form);
    ASSERT_TRUE(RunUntil([&] { return window.ReadIdle; }, Seconds(90)));
    Radio().Program("pwr", "25");
    Radio().Program("xmap", "0000000F");
    ASSERT_TRUE(Click("tbr_Refresh"));
    ASSERT_TRUE(RunUntil([&] { return window.ReadIdle && !window.Timer1.Enabled(); }, Seconds(90)));
    ExpectOpenFile("Configuration File Selection").Choose(Write(InScratch("a.txt"), "PWR 21\n"));
    ASSERT_TRUE(Click("tbr_OpenConfig") && Click("PowerCheck"));
    ClearLog();
    ASSERT_TRUE(Click("tbr_ProgramRadio"));
    EXPECT_EQ(Sent(), "\rPWR 21\r");
    ASSERT_TRUE(Click("CloseButton"));
    ASSERT_TRUE(RunUntil([&] { return !window.Loaded(); }, Seconds(90)));
  });
  ASSERT_TRUE(Click("mnuConfigRestore"));
  ASSERT_EQ(Copies().size(), 2U);
  EXPECT_THAT(Newest(), HasSubstr("\r\n#Kept: before restoring rows\r\n"));
  EXPECT_THAT(Newest(), HasSubstr("\r\nPWR 25 dBm\r\n"));
  EXPECT_THAT(Newest(), HasSubstr("\r\nXMAP 0000000F\r\n"));
  EXPECT_EQ(Settings(FileText(Copies().front())).find("XMAP"), std::string::npos);
}

TEST_F(RadioHistoryTest, NothingIsKeptOrAskedWhenItIsOffOrTheRadioHasNoSoundNumber) {
  Start();
  for (const char* number : {"../../../x", "", "a/b", "1234567890123456789012345"}) {
    UseRadio({.SerialNumber = number});
    ASSERT_TRUE(Connect());
    ClearLog();
    Program("PWR 21\r\n#With Firmware Version:\r\n");
    EXPECT_EQ(std::ranges::count(SentCommands(), "xmap"), 0);
    EXPECT_FALSE(std::filesystem::exists(Folder())) << number;
    ASSERT_TRUE(Click("tbr_Disconnect"));
  }
  Store("Preferences", "History", "False");
  Restart();
  UseRadio({});
  ASSERT_TRUE(Connect());
  ClearLog();
  Program("PWR 21\r\n#With Firmware Version:\r\n");
  EXPECT_EQ(std::ranges::count(SentCommands(), "xmap"), 0);
  EXPECT_FALSE(std::filesystem::exists(Folder()));
}

TEST_F(RadioHistoryTest, AFolderThatTakesNoCopyIsToldOnceAndStopsNoRun) {
  const auto elsewhere = InScratch("elsewhere");
  std::filesystem::create_directories(elsewhere);
  std::filesystem::create_directories(DataFolder());
  std::filesystem::create_directory_symlink(elsewhere, Folder());
  StartConnected();
  EXPECT_THAT(Text("FileDone"), StartsWith("No copy of the radio's settings could be kept. "));
  EXPECT_TRUE(std::filesystem::is_empty(elsewhere));
  Main().FileDone.Drop();
  Program("PWR 21\r\n#With Firmware Version:\r\n");
  EXPECT_EQ(Radio().Setting("pwr"), "21 dBm");
  ASSERT_TRUE(Refresh());
  EXPECT_FALSE(Visible("FileDone"));
  // The disk is full.
  std::filesystem::remove(Folder());
  {
    const LimitedFiles full(100);
    ASSERT_TRUE(Refresh());
  }
  EXPECT_TRUE(Copies().empty());
  ASSERT_TRUE(Refresh());
  ASSERT_EQ(Copies().size(), 1U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder() / "00123456"), {}), 1);
}

}  // namespace
}  // namespace quillmark
