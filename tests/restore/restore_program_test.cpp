#include "restore_bench.h"

namespace quillmark {
namespace {

class RestoreProgram : public RestoreBench {
 public:
  // What goes out for the ticked rows, each behind the look for a prompt, up to the read.
  std::string Programmed() {
    ClearLog();
    EXPECT_TRUE(Click("tbr_ProgramRadio"));
    std::string sent = Sent();
    // The enabled boxes are cleared, the others keep their ticks.
    EXPECT_EQ(Words([](auto& row) { return row.Check.Enabled() && row.Check.Checked(); }), "");
    EXPECT_NE(Ticks(), "");
    WaitForRead();
    return sent;
  }
};

TEST_F(RestoreProgram, TheBytesInTheirOrder) {
  const struct {
    const char *Name, *Revision, *Lines, *Sent;
  } cases[] = {
      {"all of a master", "320",
       "RTU 5\nRTU ON\nDLINK 9600\nDLINK OFF\nDTYPE ROOT\nXRSSI -90\nXPRI 3\nXMAP 0000000F\n"
       "XADDR 7\nSAF ON\nBUFF OFF\nFEC ON\nRETRY 4\nREPEAT 3\nLPM 2\nSKIP 1,3\nHOPTIME 28\n"
       "CSADDR 77\nADDR 1234\nLPMHOLD 80\nSLEEP ON\nRXD 6\nRXTOT 15\nCTSHOLD 70\nCTS 5\n"
       "ALARM ACTIVE LO\nAMASK 0000 00FF\nDEVICE CTS KEY\nPORT RS485\nBAUD 9600 7E1\nPWR 21 dBm\n"
       "MODE M\nOWM Spare\nOWN Hill top\nUNIT 12345\n",
       "\rUNIT 12345\r\rown Hill top\r\rowm Spare\r\rMODE M\r\rPWR 21 dBm\r\rBAUD 9600 7E1\r"
       "\rPORT RS485\r\rDEVICE CTS KEY\r\ramask   0000 00FF\r\rasense LO\r\rCTS 5\r\rCTSHOLD 70\r"
       "\rRXTOT 15\r\rRXD 6\r\rSLEEP ON\r\rLPMHOLD 80\r\rADDR 1234\r\rCSADDR 77\r\rHOPTIME "
       "28\r\rSKIP 1,3\r"
       "\rLPM 2\r\rREPEAT 3\r\rRETRY 4\r\rFEC ON\r\rBUFF OFF\r\rSAF ON\r\rXADDR 7\r"
       "\rXMAP 0000000F\r\rXPRI 3\r\rXRSSI -90\r\rDTYPE ROOT\r\rDLINK 9600\r\rDLINK OFF\r"
       "\rRTU 5\r\rRTU ON\r"},
      {"the upper end before the lower one", "099", "XMIN 1\nXMAX 9\n", "\rXMAX 9\r\rXMIN 1\r"},
      {"the sense with its colon", "320", "ALARM ACTIVE: HI\n", "\rasense  HI\r"},
      {"one line of two", "320", "DLINK 9600\n", "\rDLINK 9600\r"},
      {"what the revision hides", "199", "XMAP 00000001\nPWR 21\n", "\rPWR 21\r"},
      {"no tick", "320", "", ""},
  };
  StartConnected({.Mode = 'M'});
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Name);
    Shared().SoftwareRevision.Text = each.Revision;
    InWindow([&] {
      LoadText(each.Lines);
      ASSERT_TRUE(Click("CheckAllButton"));
      for (RestoreRowControls& row : Window().Rows) row.Check.Checked = true;
      EXPECT_EQ(Programmed(), each.Sent);
    });
    Shared().DropRead();
  }
}

TEST_F(RestoreProgram, ItsStepsAndItsEndAreTold) {
  const struct {
    const char *Password, *Lines, *Steps, *End;
  } cases[] = {
      {"", "PWR 21\nADDR 77\nAMASK 0000 00ff\nOWN Hill\n",
       "Programming 2 of 4: Power Level|4 settings sent.",
       "4 settings sent. The radio has what was sent."},
      {"", "PWR 99\nADDR 77\nXRSSI 5\n", "Programming 1 of 3: Power Level|3 settings sent.",
       "3 settings sent. Not taken: Power Level (INVALID ENTRY), Extension RSSI (INVALID ENTRY)."},
      {"1234", "PWR 21\n", "Programming 1 of 1: Power Level|1 setting sent.",
       "1 setting sent. Not taken: Power Level (ACCESS DENIED)."},
      {"", "", "|Nothing is ticked that the file has, so nothing was sent.",
       "Nothing is ticked that the file has, so nothing was sent."},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Lines);
    StartConnected({.Mode = 'R', .Password = each.Password});
    if (*each.Password != '\0') ExpectBox("Warning!").Reply(Answer::Yes);
    InWindow([&] {
      LoadText(each.Lines);
      Click("CheckAllButton");
      std::string steps;
      Radio().OnLine = [&](const sim::ReceivedLine& line) {
        if (line.text.starts_with("PWR ")) steps = Text("lblOutcome");
      };
      ASSERT_TRUE(Click("tbr_ProgramRadio"));
      EXPECT_EQ(steps + "|" + Text("lblOutcome"), each.Steps);
      Radio().OnLine = nullptr;
      EXPECT_TRUE(WaitForRead());
      EXPECT_EQ(Text("lblOutcome"), each.End);
    });
    EndSession();
  }
}

// Its row shows the value before, which is no proof that the radio has refused the new one.
TEST_F(RestoreProgram, ASettingThatCannotBeReadAgain) {
  StartConnected();
  InWindow([&] {
    LoadText("PWR 21\nCTS 7\n");
    Click("CheckAllButton");
    Radio().SetReply("pwr", "\r\nPWR 21\r\nPWR 21\r\n");
    ASSERT_TRUE(Click("tbr_ProgramRadio"));
    EXPECT_TRUE(WaitForRead());
    EXPECT_EQ(Current(SettingId::PowerLevel), "PWR 30 dBm");
    EXPECT_EQ(Text("lblOutcome"), "2 settings sent. Not read again: Power Level.");
  });
}

// The run goes on row by row; the main timer closes the window meanwhile and connects anew.
TEST_F(RestoreProgram, ARadioThatFallsSilent) {
  for (const std::size_t rows : {1U, 2U, 6U}) {
    SCOPED_TRACE(rows);
    StartConnected();
    InWindow([&] {
      LoadText("UNIT 12345\nOWN a\nOWM b\nPWR 21\nBAUD 9600\n");
      for (std::size_t i = 0; i < rows; ++i) Window().Rows[i].Check.Checked = true;
      // The first row is answered, and that prompt lets the second one out.
      Faults().SilentFrom = Radio().CommandCount() + 2;
      const std::string lost =
          "There was an error communicating with the radio. Please reconnect and try again";
      ExpectBox("Error").Saying(lost).With(Icon::Exclamation).Do([&] {
        After(Milliseconds(270), [&] { Faults() = {}; });
      });
      if (rows == 6) {
        ExpectBox("Error").Saying(lost).StaysUp(Seconds(2));
        ExpectBox("Error").Saying("Error: Port is not open").With(Icon::Critical);
      }
      ASSERT_TRUE(Click("tbr_ProgramRadio"));
      EXPECT_EQ(Window().lblOutcome.Text(), rows == 6   ? "2 of 5 settings sent. Not sent: Owner's "
                                                          "Msg., Power Level, Data Baud Rate."
                                            : rows == 2 ? "2 settings sent."
                                                        : "1 setting sent.");
      EXPECT_TRUE(RunUntil([&] { return !Window().Loaded(); }, Seconds(3)));
    });
    const int before = ReadCycles();
    EXPECT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
    EXPECT_FALSE(Shared().RestoreLinkFailed);
    const auto sent = SentCommands();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "CLOS"), 1);  // connects anew once
    EXPECT_TRUE(Enabled("tbr_Disconnect"));
    EndSession();
  }
}

}  // namespace
}  // namespace quillmark
