#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "firmware/upgrade_bench.h"

namespace quillmark {
namespace {

using testing::StartsWith;

class UpgradeTest : public UpgradeBench {};

TEST_F(UpgradeTest, FromTheMenuToTheNewVersion) {
  StartConnected();
  const std::string image = sim::FirmwareImage("3.2.1", 4096);
  const auto file = Save("new.s28", image);
  const Duration began = Now();
  std::string seen;
  const auto look = [&](const char* what) {
    seen += std::string(what) + ": " + Text("frmProgram") + " | " + Text("Label1") + " | " +
            std::to_string(As<ProgressBar>("ProgressBar1").Value()) + " | " +
            (Visible("lblLeft") ? Text("lblLeft") : "-") + " | " +
            (Enabled("Command1") ? "Cancel" : "no Cancel") + "\n";
  };
  ExpectBox("Erase Current Firmware?")
      .Saying(
          "Ready to erase the current firmware, version 3.2.0, and install version "
          "3.2.1.\r\r\t\tAre you sure you wish to continue?")
      .With(Icon::None)
      .With(Buttons::YesNo)
      .Do([&] {
        EXPECT_FALSE(Enabled("mnuSendText"));
        EXPECT_FALSE(Enabled("tbr_TransmitTextFile"));
        After(Milliseconds(3000), [&] { look("erasing"); });
        After(Milliseconds(5100), [&] {
          EXPECT_TRUE(CloseWindow("frmProgram"));
          look("still erasing");
        });
      })
      .Reply(Answer::Yes);
  OnCommand("PROGRAM", [&] {
    OnCommand("PROGRAM", [&] {
      EXPECT_EQ(Text("pnl_Settings"), "Settings are FORCED to 115200,N,8,1 for programming.");
      EXPECT_FALSE(Main().ShowCommStatus);
      EXPECT_TRUE(As<Form>("frmProgram").AlwaysOnTop());
      look("sending");
      After(Milliseconds(250), [&] { look("still sending"); });
    });
  });
  ExpectSuccess().Do([&] { EXPECT_FALSE(WindowOpen("frmProgram")); });
  ExpectOpenFile(DialogTitle).Choose(file).Do([] {});
  ASSERT_TRUE(Click("tbr_TransmitTextFile"));
  CheckExpectations();
  EXPECT_EQ(Boxes()[0].Text, "S28 Files (*.S28)|*.s28|All Files (*.*)|*.*");
  EXPECT_EQ(seen,
            "erasing: Erasing... | Erasing current firmware... | 0 | - | no Cancel\n"
            "still erasing: Erasing... | Erasing current firmware... | 50 | - | no Cancel\n"
            "sending: Downloading Firmware to the radio... | Transmitting S28 File - new.s28 | 0 "
            "| 0 of 4096 bytes | Cancel\n"
            "still sending: Downloading Firmware to the radio... | Transmitting S28 File - "
            "new.s28 | 62 | 2560 of 4096 bytes, 1 s left | Cancel\n");
  const std::string attempt = "\x1B\r\n" + Bursts(4);
  EXPECT_THAT(Sent(), StartsWith("PROGRAM\rYES\r" + attempt + attempt + LoaderPrelude() + image +
                                 "EXIT\rCLOS\r\x1B\r\n"));
  ExpectConnected();
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
  EXPECT_EQ(Radio().Setting("srev"), "3.2.1");
  EXPECT_EQ(Shared().InstalledFirmwareVersion, "3.2.1");
  EXPECT_LT(Now() - began, Seconds(60));
}

TEST_F(UpgradeTest, EveryLineAtItsTime) {
  StartConnected({.Paced = false});
  const auto file = Save("new.s28", sim::FirmwareImage("3.2.1", 1024));
  const Duration began = Now();
  std::string times;
  const auto line = [&times](std::int64_t ms, const std::string& text) {
    times += std::to_string(ms) + " " + text + "\n";
  };
  Radio().OnLine = [&](const sim::ReceivedLine& received) {
    line((received.at - began) / Milliseconds(1), received.text);
  };
  ExpectErase(Answer::Yes);
  ExpectSuccess();
  Upgrade(file);
  const std::string seen = std::exchange(times, {});

  line(0, "PROGRAM");
  line(5, "YES");
  for (const int attempt : {8005, 9155}) {
    line(attempt, "");
    for (int burst = 0; burst < 4; ++burst) {
      for (int i = 0; i < 2; ++i) line(attempt + 750 + burst * 100, "");
    }
  }
  for (int burst = 0; burst < 20; ++burst) {
    for (int i = 0; i < 2; ++i) line(11305 + burst * 20, "");
  }
  line(11705, "ERASE");
  line(13705, "PROGRAM");
  line(15205, "EXIT");
  EXPECT_EQ(seen.substr(0, times.size()), times);
}

// A dialog that gave no file, or one that is not there, comes again.
bool AsksAgain(const std::vector<std::filesystem::path>& chosen) {
  return chosen.empty() || !std::filesystem::exists(chosen[0]);
}

TEST_F(UpgradeTest, TheWaysOutBeforeAnythingIsSent) {
  StartConnected();
  const std::string image = sim::FirmwareImage("3.2.1", 1024);
  const auto sound = Save("sound.s28", image);
  const auto other = Save("other.s28", sim::SRecord('0', 2, 0, "77-9999A01 3.2.1"));
  const auto text =
      Save("text.s28", "This is no firmware file, and longer than sixty bytes it is.");
  const auto alpha = Save("alpha.s28", sim::FirmwareImage("1.2.a", 1024));
  const auto same = Save("same.s28", sim::FirmwareImage("3.2.0", 1024));
  const auto fifo = ScratchFolder() / "fifo.s28";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  std::string faulty = image;
  faulty[0x80] = faulty[0x80] == '0' ? '1' : '0';
  const auto flipped = Save("flipped.s28", faulty);
  const auto cut = Save("cut.s28", image.substr(0, image.size() - 14));
  const std::string foreign =
      "Error: This Does not appear to be a valid firmware file. Continue working with it?";
  struct Question {
    const char* Title;
    std::string Part;
    Answer Reply;
  };
  const auto expect = [this](const Question& q) {
    const bool told = q.Title == ProgramTitle;
    const bool exclaims = told || q.Title == std::string("Warning!");
    ExpectBox(q.Title)
        .Containing(q.Part)
        .With(exclaims ? Icon::Exclamation : Icon::Critical)
        .With(told ? Buttons::Ok : Buttons::YesNo)
        .Reply(q.Reply);
  };
  const Question foreignYes{"Error", foreign, Answer::Yes};
  const Question foreignNo{"Error", foreign, Answer::No};

  const struct {
    const char* Name;
    std::vector<std::filesystem::path> Chosen;
    std::vector<Question> Questions;
  } cases[] = {
      {"cancelled", {}, {}},
      {"missing, then cancelled",
       {ScratchFolder() / "gone.s28"},
       {{ProgramTitle, (ScratchFolder() / "gone.s28").string() + " not found!", Answer::Ok}}},
      {"a pipe", {fifo}, {{ProgramTitle, fifo.string() + " is not a plain file.", Answer::Ok}}},
      {"a folder",
       {ScratchFolder()},
       {{ProgramTitle, ScratchFolder().string() + " is not a plain file.", Answer::Ok}}},
      {"no firmware", {text}, {foreignNo}},
      {"no firmware, and not of this radio", {text}, {foreignYes, foreignNo}},
      {"not of this radio", {other}, {foreignNo}},
      {"alpha", {alpha}, {{"WARNING", "contains an alpha: 'A'", Answer::No}}},
      {"alpha and older",
       {alpha},
       {{"WARNING", "contains an alpha", Answer::Yes}, {"Warning!", "is older than", Answer::No}}},
      {"same", {same}, {{"Warning!", "also version 3.2.0", Answer::No}}},
      {"flipped",
       {flipped},
       {{"Error",
         "Error: This firmware file is faulty in line 3: its checksum is C3 and should be B3. "
         "Continue working with it?",
         Answer::No}}},
      {"cut", {cut}, {{"Error", "faulty in line 14: it is the last one", Answer::No}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    for (const auto& path : c.Chosen) ExpectOpenFile(DialogTitle).Choose(path);
    if (AsksAgain(c.Chosen)) ExpectOpenFile(DialogTitle);
    for (const Question& q : c.Questions) expect(q);
    ASSERT_TRUE(Click("mnuSendText"));
    CheckExpectations();
    for (const auto& box : Boxes()) EXPECT_EQ(box.Irreversible, box.Choice == Buttons::YesNo);
    EXPECT_TRUE(Enabled("mnuSendText"));
    EXPECT_TRUE(Enabled("tbr_TransmitTextFile"));
    EXPECT_FALSE(WindowOpen("frmProgram"));
  }
  EXPECT_EQ(Sent(), "");
}

TEST_F(UpgradeTest, DataOutOfOrderAreNotedAndNotAskedAbout) {
  StartConnected();
  ExpectErase(Answer::No);
  Upgrade(Save("mixed.s28", sim::SRecord('0', 2, 0, "77-1234A01 3.2.1") +
                                sim::SRecord('2', 3, 0x2000, "high") +
                                sim::SRecord('2', 3, 0x1000, "low") + sim::SRecord('8', 3, 0, "")));
  EXPECT_EQ(Boxes().back().Details,
            "The data records of the file are out of order: the address in line 3 lies before the "
            "end of the data above it.");
}

}  // namespace
}  // namespace quillmark
