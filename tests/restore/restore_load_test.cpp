#include <sys/stat.h>

#include "restore_bench.h"

namespace quillmark {
namespace {

class RestoreLoad : public RestoreBench {
 public:
  // The rows that hold something, and their boxes: "word=text" and "+" for an enabled box.
  std::string Loaded() {
    std::string text;
    for (RestoreRowControls& row : Window().Rows) {
      if (row.New.Text() == "n/a" && !row.Check.Enabled()) continue;
      text += std::string(text.empty() ? "" : "|") + row.Row.Word + "=" + row.New.Text() +
              (row.Check.Enabled() ? "+" : "");
    }
    return text;
  }
};

TEST_F(RestoreLoad, LinesBecomeRows) {
  const std::string commands =
      "RXD 6\r\nLPMHOLD 80\r\nCSADDR 77\r\nLPM 2\r\nXMIN 0\r\nXMAX 3\r\nXPRI 3\r\nDTYPE ROOT\r\n";
  const struct {
    const char *Revision, *Lines, *Rows;
  } cases[] = {
      {"320",
       "UNIT 12345\r\nOWN Hill\r\nOWM Spare\r\nMODE M\r\nPWR 21\r\nBAUD 9600\r\nPORT RS485\r\n"
       "DEVICE CTS KEY\r\nAMASK 0000 00FF\r\nALARM ACTIVE LO\r\nCTS 5\r\nCTSHOLD 70\r\nRXTOT 15",
       "unit=UNIT 12345+|own=Hill+|owm=Spare+|mode=MODE M+|pwr=PWR 21+|baud=BAUD 9600+|"
       "port=PORT RS485+|device=DEVICE CTS KEY+|amask=MASK:  0000 00FF+|asense=ALARM ACTIVE LO+|"
       "cts=CTS 5+|ctshold=CTSHOLD 70+|rxtot=RXTOT 15+"},
      {"320", "SLEEP ON\nADDR 9\nXADDR 4\nSAF ON\n# ADDR 7 in a comment\n\nnothing\nown x\nPWr 4\n",
       "sleep=SLEEP ON|addr=# ADDR 7 in a comment+|saf=SAF ON+|xaddr=XADDR 4+"},
      {"320", "OWN UNIT 5\rOWM MODE X\rHOPTIME 7 SKIP 2",
       "unit=OWN UNIT 5+|owm=MODE X+|"
       "hoptime=HOPTIME 7 SKIP 2+"},
      {"320", commands.c_str(),
       "rxd=RXD 6+|lpmhold=LPMHOLD 80+|csaddr=CSADDR 77+|lpm=LPM 2+|xmap=XMAP 0000000F+|"
       "xpri=XPRI 3+|dtype=DTYPE ROOT+"},
      {"319", commands.c_str(),
       "rxd=RXD 6+|csaddr=CSADDR 77+|xmap=XMAP 0000000F+|xpri=XPRI 3+|dtype=DTYPE ROOT+"},
      {"300", commands.c_str(),
       "rxd=RXD 6+|csaddr=CSADDR 77+|xmap=XMAP 0000000F+|xpri=XPRI 3+|dtype=DTYPE ROOT+"},
      {"299", commands.c_str(), "xmap=XMAP 0000000F+|xpri=XPRI 3+|dtype=DTYPE ROOT+"},
      {"200", commands.c_str(), "xmap=XMAP 0000000F+|xpri=XPRI 3+|dtype=DTYPE ROOT+"},
      // Filled, but hidden.
      {"199", commands.c_str(), "xmap=XMAP 0000000F|xpri=XPRI 3|dtype=DTYPE ROOT"},
      {"099", commands.c_str(), "xmax=XMAX 3+|xmin=XMIN 0+"},
      {"?", commands.c_str(),
       "rxd=RXD 6|lpmhold=LPMHOLD 80|csaddr=CSADDR 77|lpm=LPM 2|xmap=XMAP 0000000F|xpri=XPRI 3|"
       "dtype=DTYPE ROOT"},
      // Ranges, in both orders, and those that can't be mapped.
      {"320", "XMAX 3\nXMIN 1", "xmap=XMAP 00000000+"},
      {"320", "XMIN 31\nXMAX 31\nXMIN 4\nXMAX 4", "xmap=XMAP 80000010+"},
      {"320", "XMIN 0\nXMAX 31\nXMAP 00000001", "xmap=XMAP 00000001+"},
      {"320", "XMIN 5\nXMAX 4", "xmap=XMAP 00000000+"},
      {"320", "XMIN 0\nXMAX 32\nPWR 21", "pwr=PWR 21+"},
      {"320", "XMIN 0\nXMAX 99999999999999999999", ""},
      {"320", "XMIN -1\nXMAX 4", ""},
      {"320", "XMIN low\nXMAX 4", ""},
      {"320", "XMIN 1\nXMAX high", ""},
      // Rows of two lines.
      {"320", "DLINK 9600\nDLINK ON\nRTU 5\nRTU OFF", "dlink=DLINK 9600 (ON)+|rtu=RTU 5 (OFF)+"},
      {"320", "DLINK 9600\n", "dlink=DLINK 9600+"},
      // The options are no setting's.
      {"320", "LPM 2\nRTU 5\nRTU OFF\nDiagnostics ON, LPM OFF, RTU ON",
       "lpm=LPM 2+|rtu=RTU 5 (OFF)+"},
  };
  StartConnected({.Mode = 'M'});
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.Revision) + ": " + each.Lines);
    Shared().SoftwareRevision.Text = each.Revision;
    InWindow([&] {
      LoadText(each.Lines);
      EXPECT_EQ(Loaded(), each.Rows);
      Click("CheckAllButton");
      EXPECT_EQ(Ticks(), EnabledBoxes());
      LoadText("");
      EXPECT_EQ(EnabledBoxes(), "");
    });
    Shared().DropRead();
  }
}

TEST_F(RestoreLoad, OneNoticeForAFileOfAnOlderRadio) {
  const struct {
    const char *Revision, *Lines;
    bool Notice;
  } cases[] = {
      {"200", "With Firmware Version: \r\n77-1234A01\r\n1.9.0  01Jan2001\r\nPWR 21\r\n", true},
      {"?", "77-1234A01\r\n1.9.0\r\n77-1234A01\r\n1.9.0\r\nPWR 21\r\n", true},
      {"199", "77-1234A01\r\n1.9.0\r\nPWR 21\r\n", false},
      {"320", "77-1234A01\r\n2.0.0\r\nPWR 21\r\n", false},
      {"320", "PWR 21\r\n#With Firmware Version:  77-1234A01 1.9.0", false},
      {"320", "PWR 21\r\n77-1234A01\r\n", false},
  };
  StartConnected({.Mode = 'M'});
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Lines);
    Shared().SoftwareRevision.Text = each.Revision;
    InWindow([&] {
      if (each.Notice) {
        ExpectBox("Warning:")
            .Saying(
                "Notice: The configuration file you opened was created by an earlier sofware "
                "version then the one in the radio.\rSome of the commands have changed and "
                "either will not be available,\ror will be modified to be compatible with the "
                "current software.")
            .With(Icon::Information);
      }
      LoadText(each.Lines);
      EXPECT_EQ(Loaded(), "pwr=PWR 21+");
    });
    Shared().DropRead();
  }
}

TEST_F(RestoreLoad, FilesThatAreNone) {
  StartConnected({.Mode = 'M'});
  std::filesystem::create_directory(InScratch("folder"));
  ASSERT_EQ(mkfifo(InScratch("pipe").c_str(), 0600), 0);
  std::string thousand;
  for (int i = 0; i < 999; ++i) thousand += "#\n";
  const struct {
    const char* Name;
    std::filesystem::path File;
    const char *Refusal, *Rows;
  } cases[] = {
      {"empty", Write("empty", ""), "", ""},
      {"1000 lines", Write("1000", thousand + "PWR 22"), "", "pwr=PWR 22+"},
      {"1001 lines", Write("1001", thousand + "PWR 22\nPWR 23\n"), "more than 1000 lines", nullptr},
      {"10 MB", Write("big", std::string(10 << 20, '\n')), "more than 1000 lines", nullptr},
      {"endless line", Write("line", std::string(2000, 'x')), "more than 1024 characters", nullptr},
      {"marks and NUL",
       Write("bom", std::string("\xEF\xBB\xBFPWR 2\0"
                                "1\rMODE R",
                                17)),
       "", "mode=MODE R+|pwr=PWR 21+"},
      {"no text",
       Write("noise",
             "\x7F"
             "ELF\x01\xFF\xFE"),
       "", ""},
      {"the end of a range alone", Write("end", "XMAX 9"), "", "xmap=XMAP 00000000+"},
      {"folder", InScratch("folder"), "no plain file", nullptr},
      {"pipe", InScratch("pipe"), "no plain file", nullptr},
      {"device", "/dev/zero", "no plain file", nullptr},
  };
  InWindow([&] {
    for (const auto& each : cases) {
      SCOPED_TRACE(each.Name);
      LoadText("UNIT 1\nXMIN 3\nXMAX 3");
      if (*each.Refusal != 0) ExpectBox("File Error").Containing(each.Refusal);
      Load(each.File);
      EXPECT_EQ(Loaded(), each.Rows == nullptr ? "unit=UNIT 1+|xmap=XMAP 00000008+" : each.Rows);
    }
    ExpectOpenFile("Configuration File Selection").Choose(InScratch("missing"));
    ExpectBox(ProgramTitle).Saying(InScratch("missing").string() + " not found!");
    ExpectOpenFile("Configuration File Selection");  // cancelled
    ASSERT_TRUE(Click("tbr_OpenConfig"));
  });
}

// Who enables and disables what, and what stays ticked.
TEST_F(RestoreLoad, ModesDecideWhatCanBeTicked) {
  const std::string file =
      "MODE M\nSLEEP ON\nCSADDR 7\nHOPTIME 7\nSKIP 1\nLPM 1\nREPEAT 1\nRETRY 1\nFEC ON\nBUFF ON\n"
      "SAF ON\nXADDR 1\n";
  const std::string masters = "hoptime skip repeat retry fec buff saf";
  const std::string allMasters = "csaddr hoptime skip lpm repeat retry fec buff saf";
  const struct {
    char Mode;
    std::string Loaded, Ticked, Back;
  } cases[] = {
      {'M', "mode " + allMasters + " xaddr", "mode " + allMasters + " xaddr",
       "mode " + allMasters + " xaddr"},
      {'R', "mode sleep", "mode " + masters, "mode sleep"},
      {'X', "mode sleep xaddr", "mode " + masters + " xaddr", "mode xaddr"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Mode);
    StartConnected({.Mode = each.Mode});
    InWindow([&] {
      LoadText(file);
      EXPECT_EQ(EnabledBoxes(), each.Loaded);
      ASSERT_TRUE(Click("ModeCheck"));
      EXPECT_EQ(EnabledBoxes(), each.Ticked);
      EXPECT_EQ(Enabled("NewHopTime"), Enabled("HopCheck"));
      ASSERT_TRUE(Click("CheckAllButton"));
      ASSERT_TRUE(Click("ModeCheck"));
      EXPECT_EQ(EnabledBoxes(), each.Back);
      // What was closed keeps its tick, and "Uncheck All" passes it by.
      ASSERT_TRUE(Click("UnCheckAllButton"));
      EXPECT_EQ(Ticks(), each.Mode == 'M' ? "" : masters);
      ASSERT_TRUE(Click("tbr_Refresh"));
      ASSERT_TRUE(WaitForRead());
      EXPECT_EQ(EnabledBoxes(), each.Loaded);
      // The second load disables the rows; the ticks stay, and nothing of them is sent.
      LoadText("PWR 21\n");
      EXPECT_EQ(EnabledBoxes(), "pwr");
      EXPECT_EQ(Ticks(), each.Mode == 'M' ? "" : masters);
      ClearLog();
      ASSERT_TRUE(Click("tbr_ProgramRadio"));
      EXPECT_EQ(Sent(), "");
      ASSERT_TRUE(WaitForRead());
      // Ticked with "n/a" as the new mode, nothing changes.
      Window().At(SettingId::Mode).Check.Checked = true;
      const std::string boxes = EnabledBoxes();
      Window().At(SettingId::Mode).Check.OnClick();
      EXPECT_EQ(EnabledBoxes(), boxes);
    });
    EndSession();
  }
}

// The value is judged as it would be sent, and anew when the user changes it.
TEST_F(RestoreLoad, ValuesThatTheRadioWillNotTakeAreMarked) {
  StartConnected({.Revision = "2.0.0"});
  InWindow([this] {
    LoadText(
        "PWR 45\nAMASK 0000 000G\nALARM ACTIVE: UP\nOWN Hill\nXADDR 32\nDLINK 9601\nDLINK OFF\n"
        "CTS 5\nHOPTIME 28\nRTU 5\nRTU ON\nLPM 9");
    std::string problems;
    for (const RestoreRowControls& row : Window().Rows) {
      if (!row.New.Problem().empty()) problems += row.New.Problem() + "\n";
    }
    EXPECT_EQ(
        problems,
        "PWR 45: radios take 20 to 30 dBm\nAMASK 0000 000G: radios take 8 hexadecimal "
        "digits\nALARM ACTIVE UP: radios take HI or LO\nXADDR 32: radios take 0 to 31\n"
        "DLINK 9601: radios take 1200, 2400, 4800, 9600, 19200, 38400, 57600 or 115200, ON or "
        "OFF, or both\n");
    TextBox& power = Window().At(SettingId::PowerLevel).New;
    ASSERT_TRUE(Window().Rows.front().New.Enabled());
    power.UserEdit("25");
    EXPECT_EQ(power.Problem(), "25: this does not set PWR");
    power.UserEdit("PWR 25");
    EXPECT_EQ(power.Problem(), "");
  });
}

}  // namespace
}  // namespace quillmark
