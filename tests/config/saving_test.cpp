#include <algorithm>
#include <string_view>

#include "config/config_bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using SavingTest = ConfigBench;

// What a radio of that mode and revision holds after ProgramOddValues, as a file.
std::string OddFile(char mode, const std::string& revision) {
  // Lines of the modes, from a revision on and below another.
  const struct {
    std::string Lines, Modes, From, Below;
  } parts[] = {
      {"#Created by Kelvor Quillmark Configuration Software Version 1.0.0\r\n#On 11/22/2026\r\n"
       "#From Radio, serial number: SN 00123456\r\n#With Firmware Version:  77-1234A01 " +
           revision +
           "  01Jan2009\r\n\r\n\r\nUNIT 12345\r\nOWN Hill > north\r\nOWM Spare\r\nMODE " + mode +
           "\r\nPWR 21 dBm\r\nBAUD 9600 7E1\r\nPORT RS485\r\nDEVICE CTS KEY\r\n"
           "AMASK 0000 00FF\r\nALARM ACTIVE LO\r\nCTS 5\r\nCTSHOLD 70\r\nRXTOT 15\r\n",
       "MRX", "", "9"},
      {"RXD 6\r\n", "MRX", "3", "9"},
      {"SLEEP ON\r\n", "RX", "", "9"},
      {"LPMHOLD 80\r\n", "MRX", "3.2", "9"},
      {"ADDR 1234\r\n", "MRX", "", "9"},
      {"CSADDR NONE\r\n", "M", "", "3"},
      {"CSADDR 77\r\n", "M", "3", "9"},
      {"HOPTIME 28\r\nSKIP 1,3\r\n", "M", "", "9"},
      {"LPM 2\r\n", "M", "3.2", "9"},
      {"REPEAT 3\r\nRETRY 4\r\nFEC ON\r\nBUFF OFF\r\nSAF ON\r\n", "M", "", "9"},
      {"XADDR 7\r\n", "MRX", "", "9"},
      {"XMAP 0000000F\r\nXRSSI -90\r\nXPRI 3\r\nDTYPE ROOT\r\nDLINK 9600\r\nDLINK OFF\r\n", "MRX",
       "2", "9"},
      {"Diagnostics ON, Low Power ON, Poll Simulator ON\r\n", "MRX", "", "9"},
  };
  std::string text;
  for (const auto& part : parts) {
    const bool here = part.Modes.find(mode) != std::string::npos && revision >= part.From &&
                      revision < part.Below;
    if (here) text += part.Lines;
  }
  return text;
}

TEST_F(SavingTest, TheFileHoldsWhatTheRadioHolds) {
  for (const char mode : {'M', 'R', 'X'}) {
    for (const std::string revision : {"1.9.0", "2.0.0", "3.0.0", "3.2.0"}) {
      SCOPED_TRACE(std::string(1, mode) + revision);
      StartConnected({.Revision = revision, .Mode = mode});
      ProgramOddValues(Radio());
      EXPECT_EQ(Save(), OddFile(mode, revision));
      ExpectIdle();
      EXPECT_TRUE(Radio().Echo());
      std::filesystem::remove(InScratch("saved.txt"));
      ASSERT_TRUE(Quit());
      Restart();
    }
  }
}

TEST_F(SavingTest, TheBytesAndWhatShowsMeanwhile) {
  StartConnected({.Mode = 'M'});
  std::string panels;
  for (const char* command : {"unit", "amask", "asense", "options"}) {
    OnCommand(command, [&] { panels += Text("pnl_Status") + "|"; });
  }
  OnCommand("hoptime", [&] {
    EXPECT_TRUE(Visible("barRun"));
    EXPECT_EQ(As<ProgressBar>("barRun").Value(), 18);
    EXPECT_EQ(As<ProgressBar>("barRun").Max(), 33);
    for (const char* name :
         {"frQuick", "ButtonAdv", "mnuSpecial", "mnuPort", "mnuAbout", "mnuOpenLog", "mnuSendText",
          "tbr_Properties", "tbr_OpenLogFile", "tbr_TransmitTextFile", "tbr_Login", "tbr_Logout"}) {
      EXPECT_FALSE(Enabled(name)) << name;
    }
    Type("txtTerm", "x");  // a key must not get between the commands
  });
  Save();
  EXPECT_EQ(
      Sent(),
      "\r\n\r\nser\rsrev\rdeco\r\nunit\rOWN\rOWM\rmode\rpwr\rbaud\rport\rdevice\ramask\rasense"
      "\rcts\rctshold\rrxtot\rrxd\rsleep\rlpmhold\raddr\rcsaddr\rhoptime\rskip\rlpm\rrepeat\r"
      "retry\rfec\rbuff\rsaf\rxaddr\rxmap\rxrssi\rxpri\rdtype\rdlink\roptions\reeco\r");
  EXPECT_EQ(panels, "UNIT|DEVICE|ASENSE|OPTIONS|");
  EXPECT_EQ(Text("txtTerm"), "\r\n\r\n\r\n\r\n\r\nSAVING." + std::string(30, '.'));
  EXPECT_TRUE(Shared().RefreshRequested);
  Run(Seconds(3));
  EXPECT_EQ(Text("pnl_Status"), "Status: ");
  EXPECT_TRUE(Enabled("mnuPort") && Enabled("tbr_Logout") && Enabled("mnuSendText"));
}

TEST_F(SavingTest, AFileThatIsThereIsReplacedOnlyOnYes) {
  StartConnected();
  // A link leads to it, and it is for nobody else's eyes; both stay so.
  const auto old = InScratch("old.txt");
  std::filesystem::create_symlink("real.txt", old);
  std::filesystem::permissions(Write(InScratch("real.txt"), "old"),
                               std::filesystem::perms::owner_all);
  const std::string question = "File Exists !!\r\n\r\nOverwrite ? ";
  ExpectSaveFile("Radio Configuration Save").Choose(old);
  ExpectBox("File I/O Error").Saying(question).With(Buttons::YesNoCancel).Reply(Answer::No);
  ExpectSaveFile("Radio Configuration Save").Choose(old);
  ExpectBox("File I/O Error").Saying(question).Reply(Answer::Cancel);
  ASSERT_TRUE(Click("cmdSaveToFile"));
  ExpectWarned("");
  EXPECT_EQ(Sent(), "");
  EXPECT_EQ(FileText(old), "old");
  ExpectIdle();
  ExpectBox("File I/O Error").Reply(Answer::Yes);
  EXPECT_THAT(Save("old.txt"), StartsWith("#Created by"));
  EXPECT_TRUE(std::filesystem::is_symlink(old));
  EXPECT_EQ(std::filesystem::status(old).permissions(), std::filesystem::perms::owner_all);
  EXPECT_FALSE(std::filesystem::exists(InScratch("real.txt.bak")));
}

TEST_F(SavingTest, ALinkThatIsLostBehindTheQuestionCostsTheOldFileNothing) {
  StartConnected();
  Write(InScratch("f.txt"), "old");
  ExpectBox("File I/O Error").StaysUp(Seconds(1)).Reply(Answer::Yes);
  After(Milliseconds(500), [this] { Unplug(); });
  ExpectBox("Click Cancel to quit, OK to ignore.");
  ExpectBox("Error").Containing("The selected COM port is not available.");
  EXPECT_EQ(Save("f.txt"), "old");
  EXPECT_FALSE(std::filesystem::exists(InScratch("f.txt.bak")));
}

TEST_F(SavingTest, AFailureLeavesTheShortenedFileAndTheOldOneBesideIt) {
  StartConnected({.Mode = 'M'});
  ProgramOddValues(Radio());
  Write(InScratch("f.txt"), "old");
  ExpectBox("File I/O Error").Reply(Answer::Yes);
  ExpectBox("Radio Communications Error");
  Faults().SilentFrom = Faults().SilentUntil = Radio().CommandCount() + 12;
  const std::string saved = Save("f.txt");
  EXPECT_THAT(OddFile('M', "3.2.0"), StartsWith(saved));
  EXPECT_THAT(saved, HasSubstr("\r\nOWM Spare\r\n"));
  EXPECT_EQ(FileText(InScratch("f.txt.bak")), "old");
  EXPECT_EQ(std::ranges::count(saved, '\n'), 6 + 7);
  EXPECT_EQ(Text("FileDone"), "The save was interrupted. " + InScratch("f.txt").string() +
                                  " holds 7 of 32 settings, the old file is beside it as "
                                  "f.txt.bak.");
  ExpectIdle();
}

// As many as a whole save has, whatever the radio's mode and revision lack.
TEST_F(SavingTest, AnInterruptedSaveCountsWhatThisRadioHas) {
  for (const std::string revision : {"1.9.0", "2.0.0", "3.2.0"}) {
    for (const char mode : {'M', 'R'}) {
      SCOPED_TRACE(revision + mode);
      StartConnected({.Revision = revision, .Mode = mode});
      ClearLog();
      Save("whole.txt");
      const std::string whole = Text("FileDone").substr(6, 2);
      const auto questions = static_cast<std::int64_t>(SentCommands().size()) - 1;  // and "eeco"
      ASSERT_TRUE(Refresh());
      ExpectBox("Radio Communications Error");
      Faults().SilentFrom = Faults().SilentUntil = Radio().CommandCount() + questions;
      Save();
      std::string left = " holds " + std::to_string(std::stoi(whole) - 1);
      left.append(" of ").append(whole).append(" settings");
      EXPECT_THAT(Text("FileDone"), HasSubstr(left));
      for (const char* name : {"whole.txt", "saved.txt"}) std::filesystem::remove(InScratch(name));
      Restart();
    }
  }
}

TEST_F(SavingTest, RepliesOutOfShape) {
  const struct {
    const char *Name, *Word, *Reply, *Line;
    bool Fails;
  } cases[] = {
      {"nothing to say", "own", "\r\n", "OWN", false},
      {"no word", "unit", "\r\nWHAT?\r\n", "UNIT", false},
      {"more behind the power", "pwr", "\r\nPWR 21 dBm (max)\r\n", "PWR 21 dBm (", false},
      {"no blank", "dlink", "\r\nDLINK\r\n", "DLINK", true},
      {"no mode", "mode", "\r\n?\r\n", "HOPTIME", false},
      {"no serial number", "ser", "\r\n?\r\n", "#From", false},
      {"no version", "srev", "\r\n", "#With", true},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Name);
    StartConnected({.Mode = 'M'});
    // What an earlier run has learned does not count.
    Save();
    std::filesystem::remove(InScratch("saved.txt"));
    ASSERT_TRUE(Refresh());
    Radio().SetReply(each.Word, each.Reply);
    const std::string saved = Save();
    EXPECT_THAT(saved, Not(HasSubstr("\n" + std::string(each.Line))));
    EXPECT_EQ(saved.find("Diagnostics") == std::string::npos, each.Fails);
    EXPECT_TRUE(Radio().Echo());
    ExpectIdle();
    std::filesystem::remove(InScratch("saved.txt"));
    ASSERT_TRUE(Quit());
    Restart();
  }
}

TEST_F(SavingTest, ARadioInSetupModeGivesTheSameLines) {
  StartConnected({.Mode = 'X'});
  ProgramOddValues(Radio());
  Line().HostSends(Now(), "setup\r", 19200);
  Run(Milliseconds(100));
  const std::string saved = Save();
  EXPECT_EQ(saved.substr(saved.find("UNIT")),
            OddFile('X', "3.2.0").substr(OddFile('X', "3.2.0").find("UNIT")));
}

// A window that has the line for a secret, or the bench test, keeps every task from starting.
TEST_F(SavingTest, WindowsThatHaveTheLineComeFirst) {
  StartConnected();
  ASSERT_TRUE(Click("mnuSetPass"));
  ClearLog();
  for (const char* task : {"cmdSaveToFile", "cmdProgramFromFile", "cmdPrint", "cmdSaveToPreset",
                           "cmdMaster", "mnuSendText", "mnuConfigRestore"}) {
    ExpectBox("User Help").Saying("Please close the window \"Radio Password Setup\" first.");
    EXPECT_TRUE(Click(task)) << task;
  }
  EXPECT_EQ(Sent(), "");
  // Closing the port in front of that window gives the radio its echo back.
  ASSERT_TRUE(Click("mnuOpen"));
  EXPECT_THAT(Sent(), StartsWith("eeco\rCLOS\r"));
}

}  // namespace
}  // namespace quillmark
