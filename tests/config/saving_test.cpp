#include <string_view>

#include "config_bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using SavingTest = ConfigBench;

// What a radio of that mode and revision holds after ProgramOddValues, as a file.
std::string OddFile(char mode, const std::string& revision) {
  const std::string always = "MRX";
  const struct {
    std::string Line, Modes, From, Below;
  } lines[] = {
      {"#Created by Kelvor Quillmark Configuration Software Version 1.0.0", always, "", "9"},
      {"#On 11/22/2026", always, "", "9"},
      {"#From Radio, serial number: SN 00123456", always, "", "9"},
      {"#With Firmware Version:  77-1234A01 " + revision + "  01Jan2009", always, "", "9"},
      {"", always, "", "9"},
      {"", always, "", "9"},
      {"UNIT 12345", always, "", "9"},
      {"OWN Hill > north", always, "", "9"},
      {"OWM Spare", always, "", "9"},
      {std::string("MODE ") + mode, always, "", "9"},
      {"PWR 21 dBm", always, "", "9"},
      {"BAUD 9600 7E1", always, "", "9"},
      {"PORT RS485", always, "", "9"},
      {"DEVICE CTS KEY", always, "", "9"},
      {"AMASK 0000 00FF", always, "", "9"},
      {"ALARM ACTIVE LO", always, "", "9"},
      {"CTS 5", always, "", "9"},
      {"CTSHOLD 70", always, "", "9"},
      {"RXTOT 15", always, "", "9"},
      {"RXD 6", always, "3", "9"},
      {"SLEEP ON", "RX", "", "9"},
      {"LPMHOLD 80", always, "3.2", "9"},
      {"ADDR 1234", always, "", "9"},
      {"CSADDR NONE", "M", "", "3"},
      {"CSADDR 77", "M", "3", "9"},
      {"HOPTIME 28", "M", "", "9"},
      {"SKIP 1,3", "M", "", "9"},
      {"LPM 2", "M", "3.2", "9"},
      {"REPEAT 3", "M", "", "9"},
      {"RETRY 4", "M", "", "9"},
      {"FEC ON", "M", "", "9"},
      {"BUFF OFF", "M", "", "9"},
      {"SAF ON", "M", "", "9"},
      {"XADDR 7", always, "", "9"},
      {"XMAP 0000000F", always, "2", "9"},
      {"XRSSI -90", always, "2", "9"},
      {"XPRI 3", always, "2", "9"},
      {"DTYPE ROOT", always, "2", "9"},
      {"DLINK 9600", always, "2", "9"},
      {"DLINK OFF", always, "2", "9"},
      {"Diagnostics ON, Low Power ON, Poll Simulator ON", always, "", "9"},
  };
  std::string text;
  for (const auto& line : lines) {
    const bool here = line.Modes.find(mode) != std::string::npos && revision >= line.From &&
                      revision < line.Below;
    if (here) text += line.Line + "\r\n";
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
  EXPECT_EQ(Sent(), "");
  EXPECT_EQ(Contents(old), "old");
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

// Silence, and a pulled plug, at each command of the run.
TEST_F(SavingTest, AFailureLeavesTheShortenedFileAndTheOldOneAndTheEchoOn) {
  StartConnected({.Mode = 'M'});
  ProgramOddValues(Radio());
  const std::string whole = Save();
  // From srev to options. Without a reply to ser the run goes on: its line is left out.
  constexpr int commands = 36;
  std::string shortest = whole;
  for (const bool unplugged : {false, true}) {
    for (int at = 2; at <= commands; at += 4) {
      SCOPED_TRACE(std::to_string(at) + (unplugged ? " unplugged" : " silent"));
      Run(Seconds(60));
      const auto file = Write(InScratch("f.txt"), "old");
      ExpectBox("File I/O Error").Reply(Answer::Yes);
      const int now = Radio().CommandCount();
      if (unplugged) {
        TolerateBoxes();
        Faults().HangUpAtCommand = now + at;
      } else {
        Faults().SilentFrom = now + at;
        Faults().SilentUntil = now + at;
        ExpectBox("Radio Communications Error");
      }
      const std::string saved = Save("f.txt");
      Faults() = {};
      EXPECT_LT(saved.size(), whole.size());
      EXPECT_THAT(whole, StartsWith(saved));
      if (saved.size() < shortest.size()) shortest = saved;
      EXPECT_EQ(Contents(InScratch("f.txt.bak")), "old");
      ExpectIdle();
      std::filesystem::remove(file);
      std::filesystem::remove(InScratch("f.txt.bak"));
      EXPECT_EQ(Enabled("tbr_Login") || Enabled("tbr_Logout"), !unplugged);
      EXPECT_TRUE(Radio().Echo() || unplugged);
      if (unplugged) {
        Plug();
      } else {
        ASSERT_TRUE(Click("tbr_Disconnect"));
      }
      ASSERT_TRUE(Connect());
      EXPECT_TRUE(Radio().Echo());
    }
  }
  EXPECT_THAT(shortest, Not(HasSubstr("#With")));
}

TEST_F(SavingTest, SlowRadiosAndLateRepliesGiveTheSameFile) {
  for (const int thinking : {60, 200, 300, 400}) {
    SCOPED_TRACE(thinking);
    StartConnected({.Mode = 'M', .ThinkTime = Milliseconds(thinking)});
    ProgramOddValues(Radio());
    EXPECT_EQ(Save(), OddFile('M', "3.2.0"));
    std::filesystem::remove(InScratch("saved.txt"));
    ASSERT_TRUE(Quit());
    Restart();
  }
  StartConnected({.Mode = 'M'});
  ProgramOddValues(Radio());
  for (int at = 1; at <= 36; at += 1) {
    SCOPED_TRACE(at);
    Faults().LateReplyAt = Radio().CommandCount() + at;
    Faults().LateReplyMs = 900;
    EXPECT_EQ(Save(), OddFile('M', "3.2.0"));
    std::filesystem::remove(InScratch("saved.txt"));
    ASSERT_TRUE(Refresh());
  }
  // Nor does the watchdog run down while the end of a late reply is in doubt.
  Radio().SetReply("own", "\r\n");
  Faults().LateReplyAt = Radio().CommandCount() + 5;
  Faults().LateReplyMs = 1000;
  EXPECT_THAT(Save(), HasSubstr("Diagnostics"));
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

TEST_F(SavingTest, DisconnectingAndQuittingInTheMiddleLoseNothing) {
  for (const char* way : {"disconnect", "quit", "quit without logging out"}) {
    SCOPED_TRACE(way);
    Store("Preferences", "LogoutOnQuit", std::string(way) == "quit" ? "True" : "False");
    StartConnected();
    Write(InScratch("f.txt"), "old");
    ExpectBox("File I/O Error").Reply(Answer::Yes);
    OnCommand("cts", [&] {
      if (std::string(way) == "disconnect") {
        Click("tbr_Disconnect");
      } else {
        Quit();
      }
    });
    ExpectSaveFile("Radio Configuration Save").Choose(InScratch("f.txt"));
    Click("cmdSaveToFile");
    EXPECT_EQ(Contents(InScratch("f.txt.bak")), "old");
    EXPECT_THAT(Contents(InScratch("f.txt")), HasSubstr("AMASK"));
    if (!Ended()) {
      ExpectIdle();
      EXPECT_EQ(Text("pnl_Status"), "Status: ");
      EXPECT_FALSE(Port().PortOpen());
      EXPECT_TRUE(Enabled("tbr_Connect"));
      ASSERT_TRUE(Quit());
    }
    Line().Advance(Now() + Seconds(1));
    EXPECT_TRUE(Radio().Echo());
    std::filesystem::remove(InScratch("f.txt.bak"));
    Restart();
  }
}

}  // namespace
}  // namespace quillmark
