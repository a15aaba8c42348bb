#include "restore_bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class RestoreWindow : public RestoreBench {
 public:
  // The look whether the user is logged in.
  static inline const std::string probe = "addr\raddr\rdeco\rADDR NONE\reeco\r";
  // One round of waking, at the shortest pause.
  static inline const std::string wake = "\x1B\r\n\r\r\r\r\r\r\r\r";
};

TEST_F(RestoreWindow, OpensWakesAndReadsByTheRevision) {
  const struct {
    const char *Revision, *Unread, *Hidden;  // what is not read, between blanks, and not shown
    double HopTop;
  } cases[] = {
      {"1.9.9", " rxd lpmhold csaddr lpm xmap xpri xrssi dtype dlink rtu ",
       "rxd lpmhold csaddr lpm xmap xpri xrssi dtype dlink rtu", 720},
      {"2.0.0", " rxd lpmhold csaddr lpm xmin xmax ", "rxd lpmhold csaddr lpm xmax xmin", 720},
      {"2.9.9", " rxd lpmhold csaddr lpm xmin xmax ", "rxd lpmhold csaddr lpm xmax xmin", 720},
      {"3.0.0", " lpmhold csaddr lpm xmin xmax ", "lpmhold lpm xmax xmin", 1080},
      {"3.1.0", " lpmhold csaddr lpm xmin xmax ", "lpmhold lpm xmax xmin", 1080},
      {"3.1.9", " lpmhold csaddr lpm xmin xmax ", "lpmhold lpm xmax xmin", 1080},
      {"3.2.0", " xmin xmax ", "xmax xmin", 1080},
      // Unknown: shown as the oldest, read as any.
      {"?", " ", "rxd lpmhold csaddr lpm xmap xpri xrssi dtype dlink rtu", 720},
  };
  Random().Fixed = 0;
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Revision);
    const bool known = *each.Revision != '?';
    StartConnected({.Revision = known ? each.Revision : "3.2.0", .Mode = 'M'});
    if (!known) Shared().SoftwareRevision.Text = each.Revision;
    InWindow([&] {
      std::string reads = probe + wake;
      for (const Setting& setting : AllSettings()) {
        const std::string word = setting.Word;
        const bool read = std::string(each.Unread).find(" " + word + " ") == std::string::npos;
        if (setting.Restored && read) reads.append("\r").append(word).append("\r");
      }
      EXPECT_EQ(Sent(), reads);
      EXPECT_EQ(Words([](RestoreRowControls& row) { return !row.Current.Visible(); }), each.Hidden);
      EXPECT_EQ(Words([](RestoreRowControls& row) { return !row.New.Enabled(); }), each.Hidden);
      EXPECT_EQ(EnabledBoxes(), "");
      EXPECT_EQ(Top("HopCheck"), each.HopTop);
      EXPECT_EQ(Top("NewSkippedZones"), each.HopTop + 360);
      EXPECT_EQ(Top("SleepMode"), each.HopTop + 720);
      EXPECT_EQ(Visible("DiagWarnLabel"), !Visible("DTYPE"));
    });
    EndSession();
  }
}

TEST_F(RestoreWindow, ShowsHowFarTheReadHasCome) {
  StartConnected({.Mode = 'M'});
  std::string captions;
  InWindowAtOnce([&] {
    EXPECT_EQ(Text("frmRestore"), "Configuration Store/Restore");
    EXPECT_EQ(Text("FileSettingsLabel"), "Open a file for\rrestoring settings...");
    EXPECT_EQ(RowTexts(true), RowTexts(false));
    for (const char* name : {"tbr_SaveConfig", "tbr_ProgramRadio", "CheckAllButton"}) {
      EXPECT_FALSE(Enabled(name)) << name;
    }
    EXPECT_FALSE(Visible("ProgressLabel"));
    for (const char* word : {"unit", "mode", "pwr", "rtu"}) {
      OnCommand(word, [&] {
        captions += Text("ProgressLabel") + "|";
        EXPECT_FALSE(Window().ReadIdle);
      });
    }
    ASSERT_TRUE(RunUntil([&] { return Window().ReadIdle; }));
    EXPECT_EQ(Text("ProgressLabel"), "100%");
    EXPECT_FALSE(Enabled("ProgressLabel"));
    EXPECT_TRUE(Enabled("tbr_SaveConfig"));
    EXPECT_TRUE(Visible("ProgressBlock_9"));
    EXPECT_EQ(As<Shape>("ProgressBlock_0").FillColor(), 0xC7A37FU);
    ASSERT_TRUE(Select("TabStrip", 6));
    EXPECT_GT(Window().RadSet[5].Depth(), Window().RadSet[0].Depth());
    // An idle window costs nothing.
    EXPECT_FALSE(Window().Timer1.Enabled());
    const std::string before = Sent();
    Run(Seconds(300));
    EXPECT_EQ(Sent(), before);
    Click("mnuConfigRestore");  // the main window is blocked
  });
  EXPECT_EQ(captions, "| 10%| 10%| 90%|");
  EXPECT_TRUE(Port().PortOpen());
  const int before = ReadCycles();
  EXPECT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
}

TEST_F(RestoreWindow, WarnsAUserWhoIsNotLoggedIn) {
  StartConnected({.Mode = 'M', .Password = "1234"});
  const std::string warning =
      "Warning! You are not currently logged in, and therefore will not be able to reconfigure the "
      "radio.\rYou will, however, be able to save a configuration file based off of the current "
      "settings.\r\rWould you like to continue?";
  ExpectBox("Warning!")
      .Saying(warning)
      .With(Icon::Exclamation)
      .With(Buttons::YesNo)
      .Reply(Answer::No);
  ASSERT_TRUE(Click("mnuConfigRestore"));
  EXPECT_EQ(Sent(), probe);
  EXPECT_TRUE(Port().PortOpen());
  EXPECT_EQ(Text("txtTerm"), "");
  EXPECT_TRUE(Shared().RefreshRequested);
  ASSERT_TRUE(Refresh());
  EXPECT_TRUE(Radio().Echo());
  ExpectBox("Warning!").StaysUp(Seconds(500)).Reply(Answer::Yes);  // nothing else is sent meanwhile
  InWindow([&] {
    LoadText("PWR 22\r\n");
    ASSERT_TRUE(Click("CheckAllButton"));
    ASSERT_TRUE(Click("tbr_ProgramRadio"));
    EXPECT_TRUE(WaitForRead());
    EXPECT_EQ(Current(SettingId::PowerLevel), "PWR 30 dBm");
    EXPECT_NE(Save(), "");
  });
  EXPECT_TRUE(Radio().Echo());
}

TEST_F(RestoreWindow, OpensThePortItselfWhenItIsClosed) {
  StartConnected();
  Port().SetPortOpen(false);
  Port().SetHandshaking(2);
  Main().ConnectOnLaunchPending = true;
  Main().Timer1.Enabled = false;
  InWindow([&] {
    EXPECT_EQ(Current(SettingId::Mode), "MODE R");
    EXPECT_EQ(SecondPort().Handshaking(), 2);
    EXPECT_FALSE(Port().PortOpen());
  });
  EXPECT_TRUE(Port().PortOpen());
  EXPECT_TRUE(RunUntil([&] { return ReadCycles() > 1; }));
  EXPECT_THAT(Sent(), Not(HasSubstr("deco")));
}

// While a read of the main window runs, the window waits for its end, and the timer goes on.
TEST_F(RestoreWindow, WaitsForTheEndOfAReadCycle) {
  StartConnected();
  OnCommand("cts", [&] { EXPECT_TRUE(Click("mnuConfigRestore")); });
  std::string connectTime;
  ExpectWindow("frmRestore").Do([&](Form& form) {
    connectTime = Text("pnl_ConnectTime");
    Run(Seconds(20));
    EXPECT_NE(Text("pnl_ConnectTime"), connectTime);
    EXPECT_TRUE(Click("CloseButton"));
    EXPECT_FALSE(form.Loaded());
  });
  ASSERT_TRUE(Refresh());
  EXPECT_TRUE(RunUntil([&] { return !connectTime.empty() && Port().PortOpen(); }));
  ExpectPortGivenBack();
}

TEST_F(RestoreWindow, ClosesInTheMiddle) {
  const std::function<void()> ways[] = {[&] { Click("CloseButton"); },
                                        [&] { CloseWindow("frmRestore"); },
                                        [&] { Application().Form_Unload(); }};
  for (std::size_t way = 0; way < std::size(ways); ++way) {
    for (int at = 100; at < 9000; at += 650) {
      SCOPED_TRACE(std::to_string(way) + " at " + std::to_string(at));
      StartConnected({.Mode = 'M'});
      InWindowAtOnce([&] {
        After(Milliseconds(at), ways[way]);
        const Duration asked = Now() + Milliseconds(at);
        EXPECT_TRUE(RunUntil([&] { return !Window().Loaded() || Ended(); }, Seconds(20)));
        // While the radio is woken it closes at once.
        if (at < 1000) {
          EXPECT_LE(Now() - asked, Milliseconds(50));
        }
      });
      EXPECT_EQ(Ended(), way == 2);
      if (Ended()) {
        EXPECT_FALSE(Port().PortOpen());
        Line().Advance(Now() + Seconds(1));
        EXPECT_EQ(Radio().Commands().back(), "PASS NONE");
      } else {
        ASSERT_TRUE(Refresh());
        ASSERT_TRUE(Quit());
      }
      Restart();
    }
  }
}

TEST_F(RestoreWindow, CountsTheRowsThatDifferAndTicksThem) {
  StartConnected({.Mode = 'R'});
  InWindow([&] {
    EXPECT_EQ(Text("lblDiffers"), "");
    EXPECT_FALSE(Enabled("TickDifferingButton"));
    const auto seen = [&] {
      const TabStrip& tabs = Window().TabStrip;
      std::string text = Text("lblDiffers") + "|";
      for (std::size_t tab = 0; tab < tabs.Tabs.size(); ++tab) text += tabs.Caption(tab) + "|";
      return text;
    };
    const std::string others =
        "Network Settings 2...|Store & Forward Settings...|Network Wide Diagnostic Settings...|";
    std::string whileLoading;
    After(Milliseconds(250), [&] { whileLoading = seen(); });
    LoadText("PWR 30\nBAUD 9600 8N1\nAMASK ffff ffff\nCTS 7\nHOPTIME 28\nOWN quillmark ss\n");
    EXPECT_EQ(whileLoading,
              "Loading the file...|Radio Information|Radio Settings 1...|Radio Settings 2...|"
              "Network Settings 1...|" +
                  others);
    EXPECT_EQ(seen(),
              "4 of 6 differ, 25 on one side only|Radio Information (1)|Radio Settings 1... (1)|"
              "Radio Settings 2... (1)|Network Settings 1... (1)|" +
                  others);
    // What is the same loses its tick; the hop time can't be ticked at a remote.
    ASSERT_TRUE(Click("PowerCheck"));
    ASSERT_TRUE(Click("TickDifferingButton"));
    EXPECT_EQ(Ticks(), "own baud cts");
    EXPECT_EQ(Text("lblOutcome"), "3 ticked. 1 more can't be ticked in this mode.");
    // What the user types counts, and what the radio has taken.
    ASSERT_TRUE(Edit("NewCTSdelay", "cts 0"));
    ASSERT_TRUE(Click("tbr_ProgramRadio"));
    ASSERT_TRUE(WaitForRead());
    EXPECT_EQ(seen(),
              "1 of 6 differ, 25 on one side only|Radio Information|Radio Settings 1...|"
              "Radio Settings 2...|Network Settings 1... (1)|" +
                  others);
  });
}

TEST_F(RestoreWindow, NoPortNoReadButAWayOut) {
  StartConnected();
  ExpectBox("Error").Containing(
      "There was an error communicating with the radio. Please reconnect");
  SecondPort().FailOpening(1);
  InWindow([&] {
    ExpectBox("Error").Saying("Error: Port is not open").With(Icon::Critical);
    LoadText("PWR 22\r\n");
    Click("CheckAllButton");
    Click("tbr_ProgramRadio");
    Click("tbr_Refresh");
    Run(Seconds(5));
    EXPECT_FALSE(Window().Timer1.Enabled());
  });
  // Gone for good: the main window shows it.
  ExpectBox("Error").Containing(
      "There was an error communicating with the radio. Please reconnect");
  InWindow([&] {
    Port().FailOpening(1);
    Shared().AskForReconnect();
  });
  EXPECT_FALSE(Shared().RestoreLinkFailed);
  EXPECT_TRUE(Enabled("tbr_Connect"));
  EXPECT_FALSE(Enabled("mnuConfigRestore"));
  ASSERT_TRUE(Connect());
}

// Box and notice of the window's own port.
TEST_F(RestoreWindow, CommEvents) {
  StartConnected();
  const std::string title = "Click Cancel to quit, OK to ignore.";
  InWindow([&] {
    // A second error while the box is up is dropped.
    ExpectBox(title)
        .Saying("Framing Error")
        .With(Buttons::OkCancel)
        .StaysUp(Milliseconds(5))
        .Reply(Answer::Ok);
    SecondPort().Raise(1004);
    After(Milliseconds(2), [&] { SecondPort().Raise(1004); });
    Run(Milliseconds(9));
    EXPECT_EQ(DesktopSeen().Beeps, 1);
    EXPECT_TRUE(SecondPort().PortOpen());
    ExpectBox(title).Saying("Unknown error or event").Reply(Answer::Cancel);
    // Cancel closes the port; a read that runs ends with one word.
    ExpectBox("Error").Saying("Error: Port is not open");
    After(Seconds(2), [&] { SecondPort().Raise(1005); });
    ASSERT_TRUE(Click("tbr_Refresh"));
    EXPECT_TRUE(WaitForRead());
    EXPECT_FALSE(SecondPort().PortOpen());
    EXPECT_FALSE(Visible("ProgressLabel"));
  });
  InWindow([&] {
    SecondPort().Raise(3);  // a notice silences what the line does, not its end
    SecondPort().Raise(1004);
    Run(Milliseconds(1));
    ExpectBox(title).Saying("Unknown error or event").Reply(Answer::Ok);
    Unplug();
    Run(Milliseconds(1));
    EXPECT_EQ(Boxes().back().Details,
              "The serial adapter was unplugged, or its driver gave it up. Plug it in again, then "
              "close this window and open it again.");
    Plug();
  });
  InWindow([&] { EXPECT_TRUE(SecondPort().PortOpen()); });
}

}  // namespace
}  // namespace quillmark
