#include "config/config_bench.h"
#include "restore/restore_bench.h"

namespace quillmark {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string saved = "#With Firmware Version:  77-1234A01 3.2.0\r\n";

class LastRunTest : public ConfigBench {
 public:
  // Programs a file, and lets the read that follows run.
  std::string AfterFile(const std::string& lines) {
    Program(saved + lines);
    EXPECT_TRUE(Refresh());
    return Text("LastRun");
  }
  // Answers a row's box, and lets the read that follows run.
  std::string AfterEntry(const char* row, const char* title, const char* answer) {
    const int reads = ReadCycles();
    EXPECT_TRUE(Click("ButtonAdv"));
    ExpectInput(title).Type(answer);
    EXPECT_TRUE(Click(row));
    EXPECT_TRUE(RunUntil([&] { return ReadCycles() > reads; }));
    EXPECT_TRUE(Click("ButtonAdv"));
    return Visible("LastRun") ? Text("LastRun") : "";
  }
  std::string AfterPower(const char* answer) {
    return AfterEntry("PowerLevel", "Program Power Output Level", answer);
  }
};

TEST_F(LastRunTest, AFileWhoseValuesAreRefusedInPart) {
  StartConnected();
  const std::string told = "29 of 31 settings taken; refused: OWM, PWR";
  EXPECT_EQ(AfterFile("PASS k9z!\r\nCODE 17\r\nOWM " + std::string(31, 'x') +
                      "\r\nPWR 45\r\nDLINK 9600\r\nDLINK OFF\r\nDiagnostics ON, LPM OFF\r\n"),
            told);
  const std::string marks = "Sent OWM " + std::string(31, 'x') +
                            "; the radio has Bench radio: INVALID ENTRY\n"
                            "Sent PWR 45; the radio has PWR 30 dBm: INVALID ENTRY\n";
  EXPECT_EQ(Marks(), marks);

  ASSERT_TRUE(Click("LastRun"));
  EXPECT_EQ(Text("lblSentence"), told);
  EXPECT_THAT(Text("frmSentSettings.txtTable"),
              AllOf(HasSubstr("\r\nPWR      PWR 30 dBm        45  "),
                    HasSubstr("  PWR 30 dBm        refused  INVALID ENTRY\r\n"),
                    HasSubstr("\r\nDLINK    DLINK 19200 (ON)  9600 OFF  "), Not(HasSubstr("k9z!")),
                    Not(HasSubstr("CODE"))));
  ASSERT_TRUE(Click("frmSentSettings.cmdClose"));

  // A read changes nothing; another radio takes notice and marks away, and so does a disconnect.
  ASSERT_TRUE(Refresh());
  EXPECT_EQ(Marks(), marks);
  UseRadio({.SerialNumber = "00654321"});
  ASSERT_TRUE(Refresh());
  EXPECT_FALSE(Visible("LastRun"));
  EXPECT_EQ(Marks(), "");
  EXPECT_EQ(AfterPower("12"), "PWR 12 refused: INVALID ENTRY; the radio has PWR 30 dBm");
  ASSERT_TRUE(Click("tbr_Disconnect"));
  EXPECT_FALSE(Visible("LastRun"));
  EXPECT_EQ(Marks(), "");
}

TEST_F(LastRunTest, OneChangeAfterTheOther) {
  StartConnected();
  const struct {
    const char *Row, *Title, *Answer, *Reply, *Told, *Mark;
  } cases[] = {
      {"PowerLevel", "Program Power Output Level", "PWR 25 dBm", nullptr, "PWR 25 dBm taken", ""},
      {"PowerLevel", "Program Power Output Level", "45", nullptr,
       "PWR 45 refused: INVALID ENTRY; the radio has PWR 25 dBm",
       "Sent PWR 45; the radio has PWR 25 dBm: INVALID ENTRY\n"},
      {"CTSdelay", "Program CTS Delay", "7", "\r\nPROGRAMMED OK\r\n",
       "CTS 7 sent; the radio has CTS 0", "Sent CTS 7; the radio has CTS 0\n"},
      {"CTSdelay", "Program CTS Delay", "7", "\r\nWHO KNOWS\r\n", "CTS 7 sent; the radio has CTS 0",
       "Sent CTS 7; the radio has CTS 0\n"},
      {"OwnerName", "Program Owner's Name", "OWN 5", nullptr, "OWN OWN 5 taken", ""},
      // Not shown with this device type: the answer alone counts.
      {"CTSHOLDdelay", "Program CTSHOLD Delay", "70", nullptr, "CTSHOLD 70 taken", ""},
      {"CTSHOLDdelay", "Program CTSHOLD Delay", "80", "\r\nWHO KNOWS\r\n", "CTSHOLD 80: no answer",
       ""},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Told);
    if (each.Reply != nullptr) {
      const bool hold = std::string(each.Row) == "CTSHOLDdelay";
      Radio().SetReply((hold ? "ctshold " : "cts ") + std::string(each.Answer), each.Reply);
      // Whatever it says, it does not take it.
      Radio().SetReply("cts", "\r\nCTS 0\r\n");
    }
    EXPECT_EQ(AfterEntry(each.Row, each.Title, each.Answer), each.Told);
    EXPECT_EQ(Marks(), each.Mark);
  }
  // A window that does not wait for the radio.
  ASSERT_TRUE(Click("ButtonAdv"));
  ExpectWindow("frmDLINKOptions").Do([&] {
    EXPECT_TRUE(Click("OnOption_1"));
    EXPECT_TRUE(Click("BaudRate_0"));
    EXPECT_TRUE(Click("frmDLINKOptions.OKButton"));
  });
  ASSERT_TRUE(Click("DLINK"));
  ASSERT_TRUE(Refresh());
  EXPECT_EQ(Text("LastRun"), "DLINK 1200 off taken");
}

// The default set programs it as well, where nobody has asked for it.
TEST_F(LastRunTest, ASettingThatTheRadioLacks) {
  StartConnected({.Mode = 'M'});
  for (const char* line : {"lpm", "lpm 0"}) {
    Radio().SetReply(line, "\r\nNOT A SELECTED OPTION\r\n");
  }
  EXPECT_EQ(AfterEntry("LPM", "Program Low Power Mode", "0"),
            "LPM 0 refused: NOT A SELECTED OPTION");
}

TEST_F(LastRunTest, NobodyLoggedIn) {
  StartConnected({.Password = "k9z!"});
  ASSERT_TRUE(Visible("NotLoggedIn"));
  EXPECT_EQ(Text("NotLoggedIn"), "Not logged in: the radio refuses changes");
  EXPECT_EQ(AfterPower("21"), "PWR 21 refused: ACCESS DENIED; the radio has PWR 30 dBm");
  EXPECT_EQ(AfterFile("PWR 21\r\n"),
            "0 of 30 settings taken; refused: MODE, PWR, BAUD, PORT, DEVICE, AMASK and 24 more");

  ExpectWindow("frmLogin").Do([&] {
    EXPECT_TRUE(Edit("txtPassword", "k9z!"));
    EXPECT_TRUE(Click("frmLogin.cmdOK"));
  });
  ASSERT_TRUE(Click("NotLoggedIn"));
  EXPECT_FALSE(Visible("NotLoggedIn"));
  EXPECT_EQ(AfterPower("21"), "PWR 21 taken");

  // The radio has forgotten the login, which the toolbar does not know.
  Radio().SetReply("pwr 22", "\r\nACCESS DENIED\r\n");
  AfterPower("22");
  EXPECT_TRUE(Visible("NotLoggedIn"));
  ASSERT_TRUE(Click("tbr_Disconnect"));
  EXPECT_FALSE(Visible("NotLoggedIn"));
}

// The run ends at its seventeenth line. What the radio took is told after the next read.
TEST_F(LastRunTest, ARunWhoseLinkEnds) {
  for (const bool letGo : {true, false}) {
    SCOPED_TRACE(letGo);
    StartConnected();
    if (!letGo) {
      ExpectBox("Click Cancel to quit, OK to ignore.");
      ExpectBox("Error").Containing("not available");
    }
    OnCommand("ADDR NONE", [&] {
      if (letGo) {
        EXPECT_TRUE(Click("tbr_Disconnect"));
      } else {
        Unplug();
      }
    });
    Program(saved + "PWR 21\r\nADDR 7\r\nOWM Mast\r\n");
    EXPECT_EQ(Text("LastRun"), letGo ? "11 of 33 settings sent; disconnected before they were read"
                                     : "11 of 33 settings sent; the link was lost");
    if (!letGo) Plug();
    ASSERT_TRUE(Connect());
    EXPECT_EQ(
        Text("LastRun"),
        "11 of 33 settings taken; not sent: OWM, MODE, PWR, ADDR, CSADDR, HOPTIME and 16 more");
    ASSERT_TRUE(Quit());
    Restart();
  }
}

// The rows still show the read before the change, which says nothing about it.
TEST_F(LastRunTest, AReadThatEndsBeforeItsFirstRow) {
  StartConnected();
  OnCommand("pwr 20", [&] {
    Faults().SilentFrom = Radio().CommandCount() + 1;
    After(Seconds(3), [&] { EXPECT_TRUE(Click("tbr_Disconnect")); });
  });
  AfterPower("20");
  EXPECT_EQ(Text("LastRun"), "1 of 1 settings sent; disconnected before they were read");
  EXPECT_EQ(Marks(), "");
}

// Without an answer to wait for, behind fixed pauses; a slow radio answers when the run is over.
TEST_F(LastRunTest, ARole) {
  for (const int think : {5, 300}) {
    SCOPED_TRACE(think);
    StartConnected({.Revision = "2.0.0", .ThinkTime = Milliseconds(think)});
    ASSERT_TRUE(Edit("txtNewADDR", "70000"));
    ExpectBox("MASTER").Reply(Answer::Yes);
    ExpectBox("Repeater ?").Reply(Answer::Yes);
    ASSERT_TRUE(Click("cmdMaster"));
    ASSERT_TRUE(Refresh());
    EXPECT_EQ(Text("LastRun"), "25 of 26 settings taken; refused: ADDR");
    EXPECT_EQ(Marks(), "Sent ADDR 70000; the radio has ADDR NONE: INVALID ENTRY\n");
    ASSERT_TRUE(Quit());
    Restart();
  }
}

class LastRestoreTest : public RestoreBench {};

TEST_F(LastRestoreTest, TheRowsOfAllRunsInTheWindow) {
  StartConnected();
  InWindow([&] {
    for (const char* lines : {"PWR 45\nCTS 7\nUNIT 12345\n", "RTU 5\nRTU ON\nCTS 8\n"}) {
      LoadText(lines);
      ASSERT_TRUE(Click("CheckAllButton"));
      ASSERT_TRUE(Click("tbr_ProgramRadio"));
      ASSERT_TRUE(WaitForRead());
    }
  });
  ASSERT_TRUE(Refresh());
  EXPECT_EQ(Text("LastRun"), "3 of 4 settings taken; refused: PWR");
  EXPECT_EQ(Marks(), "Sent PWR 45; the radio has PWR 30 dBm: INVALID ENTRY\n");
}

}  // namespace
}  // namespace quillmark
