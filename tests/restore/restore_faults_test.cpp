#include "restore_bench.h"

namespace quillmark {
namespace {

// What the line, the radio and impatient users do to the window.
class RestoreFaults : public RestoreBench {
 public:
  void ExpectUsable() {
    ExpectPortGivenBack();
    EXPECT_FALSE(Main().EchoIsOff);
    EXPECT_FALSE(Shared().RestoreLinkFailed);
    EXPECT_EQ(Application().Ticks().LineHolders, 0);
  }
  bool Settled() { return !Window().Loaded() || (Window().ReadIdle && !Window().Timer1.Enabled()); }
};

// The plug is pulled at any moment of wake, read, programming and save, and put in again.
TEST_F(RestoreFaults, ThePlugIsPulled) {
  StartConnected();
  After(Milliseconds(20), [&] { Unplug(); });
  ExpectBox("Click Cancel to quit, OK to ignore.");
  ExpectBox("Error").Containing("There was an error communicating");
  ASSERT_TRUE(Click("mnuConfigRestore"));  // and no window comes
  Plug();
  ASSERT_TRUE(Connect());
  ExpectUsable();
  EndSession();
  TolerateBoxes();
  for (int at = 330; at < 16500; at += 310) {
    SCOPED_TRACE(at);
    StartConnected({.Mode = 'M'});
    After(Milliseconds(at), [&] { Unplug(); });
    InWindowAtOnce([&] {
      RunUntil([&] { return Settled(); });
      LoadText("UNIT 12345\nOWN a\nOWM b\nPWR 21\nBAUD 9600\nDLINK 9600\nDLINK ON\n");
      Click("CheckAllButton");
      Click("tbr_ProgramRadio");
      RunUntil([&] { return Settled(); });
      ExpectSaveFile("Radio Configuration Save").Choose(InScratch("pulled.txt"));
      if (!Click("tbr_SaveConfig")) Machine().Dialogs.SaveFile({"Radio Configuration Save", ""});
      Run(Seconds(1));
    });
    Plug();
    if (!Enabled("tbr_Connect")) Click("tbr_Disconnect");
    EXPECT_TRUE(Connect());
    ExpectUsable();
    EXPECT_TRUE(Radio().Echo());
    EndSession();
  }
}

// The link dies with the last command of the main window, which learns of it when this window is
// up.
TEST_F(RestoreFaults, ALinkThatDiesWhileTheWindowOpensIsShownAsClosed) {
  StartConnected();
  Faults().HangUpAtCommand = Radio().CommandCount() + 3;
  ExpectBox("Click Cancel to quit, OK to ignore.");
  ExpectBox("Click Cancel to quit, OK to ignore.");
  InWindowAtOnce([&] {
    EXPECT_TRUE(RunUntil([&] { return Window().ReadIdle; }));
    UseRadio({});
  });
  CheckExpectations();
  EXPECT_EQ(Port().PortOpen(), Visible("imgConnected"));
  EXPECT_TRUE(Connect());
  ExpectUsable();
}

// A radio that says nothing more: the window closes, and the main timer connects anew.
TEST_F(RestoreFaults, TheRadioFallsSilentInARead) {
  for (int at = 1; at <= 33; at += 8) {
    SCOPED_TRACE(at);
    StartConnected({.Mode = 'M'});
    InWindow([&] {
      Faults().SilentFrom = Radio().CommandCount() + at;
      ExpectBox("Error")
          .Saying("There was an error communicating with the radio. Please reconnect and try again")
          .Do([&] { Faults() = {}; });
      ClearLog();
      ASSERT_TRUE(Click("tbr_Refresh"));
      EXPECT_TRUE(RunUntil([&] { return !Window().Loaded(); }));
    });
    EXPECT_TRUE(Shared().RestoreLinkFailed);
    const int before = ReadCycles();
    EXPECT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
    ExpectUsable();
    EndSession();
  }
  // Dead from the start: 30 rounds, then the read finds it out, and so does the connect.
  StartConnected({.Overlaps = true});
  Random().Fixed = 0;
  InWindowAtOnce([&] {
    SecondPort().HoldOutput(true);
    ExpectBox("Error").Containing("There was an error communicating");
    const Duration start = Now();
    EXPECT_TRUE(RunUntil([&] { return !Window().Loaded(); }, Seconds(60)));
    EXPECT_GE(Now() - start, Seconds(24));
  });
  SecondPort().HoldOutput(false);
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() > 1; }));
  // Nobody has to wait for the end of that.
  InWindowAtOnce([&] {
    SecondPort().HoldOutput(true);
    After(Seconds(2), [&] { Click("CloseButton"); });
    EXPECT_TRUE(RunUntil([&] { return !Window().Loaded(); }, Seconds(4)));
    SecondPort().HoldOutput(false);
  });
}

// The plug is pulled before the reconnect; whoever connects then is connected once.
TEST_F(RestoreFaults, TheReconnectIsForgottenWithTheLink) {
  StartConnected();
  InWindow([&] {
    Faults().SilentFrom = 1;
    ExpectBox("Error").Containing("There was an error communicating");
    ASSERT_TRUE(Click("tbr_Refresh"));
    EXPECT_TRUE(RunUntil([&] { return !Window().Loaded(); }));
    EXPECT_TRUE(Shared().RestoreLinkFailed);
    ExpectBox("Click Cancel to quit, OK to ignore.");
    Unplug();
  });
  Run(Seconds(3));
  CheckExpectations();
  Faults() = {};
  Plug();
  ClearLog();
  ASSERT_TRUE(Connect());
  Run(Seconds(3));
  const auto sent = SentCommands();
  EXPECT_EQ(std::count(sent.begin(), sent.end(), "OPEN"), 1);
  ExpectUsable();
}

TEST_F(RestoreFaults, SlowAndLateReplies) {
  const struct {
    int ThinkMs, LateMs;
    bool AllRead;
  } cases[] = {{5, 0, true},   {40, 0, true},   {120, 0, true}, {170, 0, true},
               {5, 300, true}, {5, 470, false}, {5, 560, false}};
  for (const auto& each : cases) {
    SCOPED_TRACE(std::to_string(each.ThinkMs) + ", late " + std::to_string(each.LateMs));
    StartOdd({.Mode = 'M', .ThinkTime = Milliseconds(each.ThinkMs), .Overlaps = true});
    std::string whole;
    InWindow([&] {
      whole = RowTexts(true);
      EXPECT_NE(whole.find("HOPTIME 28"), std::string::npos);
      for (int at = 1; each.LateMs > 0 && at <= 33; ++at) {
        SCOPED_TRACE(at);
        for (RestoreRowControls& row : Window().Rows) row.Current.Text = "n/a";
        Faults().LateReplyAt = Radio().CommandCount() + at;
        Faults().LateReplyMs = each.LateMs;
        ASSERT_TRUE(Click("tbr_Refresh"));
        ASSERT_TRUE(WaitForRead());
        // No row shows another one's reply: at most its own is missing.
        std::size_t missing = 0;
        for (RestoreRowControls& row : Window().Rows) {
          const std::string line = std::string(row.Row.Word) + "=" + row.Current.Text() + "\n";
          if (("\n" + whole).find("\n" + line) == std::string::npos) {
            EXPECT_EQ(row.Current.Text(), "n/a");
            ++missing;
          }
        }
        EXPECT_EQ(missing, each.AllRead ? 0U : 1U);
      }
    });
    EndSession();
  }
}

TEST_F(RestoreFaults, ARadioInSetupMode) {
  StartOdd({.Mode = 'M'});
  std::string normal;
  InWindow([&] { normal = RowTexts(true); });
  Shared().InSetupMode = true;  // which the radio has left
  InWindow([&] { EXPECT_EQ(RowTexts(true), normal); });
  ExpectBox("Warning").Reply(Answer::Yes);
  ASSERT_TRUE(Click("mnuSetupMode"));
  ASSERT_TRUE(RunUntil([&] { return WindowOpen("frmSetup"); }));
  EXPECT_TRUE(Shared().InSetupMode);
  InWindow([&] { EXPECT_EQ(RowTexts(true), normal); });
}

TEST_F(RestoreFaults, RepliesThatTellSomethingElse) {
  StartConnected({.Synchronised = false});
  Radio().SetReply("cts", "\r\nCTS >5\r\n");
  Radio().SetReply("rxd", "\r\n\r\n");
  Radio().SetReply("pwr", "\r\nPWR 21", false);
  InWindow([&] {
    EXPECT_EQ(Current(RestoreSetting::RepeatCount), "MASTER ONLY");
    EXPECT_EQ(Current(RestoreSetting::CTSdelay), "CTS >5");
    EXPECT_EQ(Current(RestoreSetting::RXD), "");
    EXPECT_EQ(Current(RestoreSetting::PowerLevel), "n/a");
  });
}

// Clicks on every button in the middle of a read, a load, a programming run and a save.
TEST_F(RestoreFaults, ClicksInTheMiddle) {
  const char* const buttons[] = {"tbr_OpenConfig", "tbr_SaveConfig", "tbr_ProgramRadio",
                                 "tbr_Refresh",    "CheckAllButton", "UnCheckAllButton",
                                 "ModeCheck",      "CloseButton"};
  const char* const works[] = {"read", "load", "program", "save"};
  for (const std::string work : works) {
    for (const std::string button : buttons) {
      SCOPED_TRACE(button + " during a " + work);
      std::filesystem::remove(InScratch("window.txt"));
      StartConnected({.Mode = 'M'});
      bool stillOpen = false;
      InWindow([&] {
        LoadText("MODE M\nPWR 21\n");
        const bool saves = button == "tbr_SaveConfig" && work != "save";
        if (saves) ExpectSaveFile("Radio Configuration Save").Choose(InScratch("window.txt"));
        // A programming run takes no clicks; they come at its end, before the read.
        if (button == "tbr_OpenConfig" && work == "program") {
          ExpectOpenFile("Configuration File Selection");
        }
        ClearLog();
        bool clicked = false;
        const auto click = [&] {
          clicked = Click(button);
          if (saves && work == "read") Click(button);  // once is enough
        };
        if (work == "load") {
          After(Milliseconds(150), click);
          LoadText("MODE M\nPWR 22\nCTS 4\nRXD 1\n");
        } else if (work == "save") {
          After(Milliseconds(500), click);
          Save();
        } else {
          if (work == "program") Click("CheckAllButton");
          if (work == "read") Window().At(RestoreSetting::PowerLevel).Check.Checked = true;
          After(Milliseconds(work == "read" ? 2000 : 20), click);
          Click(work == "read" ? "tbr_Refresh" : "tbr_ProgramRadio");
        }
        RunUntil([&] { return !Window().Loaded(); }, Seconds(30));
        stillOpen = Window().Loaded();
        EXPECT_EQ(clicked, work != "save") << "a save takes no clicks";
        const auto sent = SentCommands();
        const auto times = [&](const char* command) {
          return std::count(sent.begin(), sent.end(), command);
        };
        const int reads = work == "read" || work == "program" ? 1 : 0;
        const bool rereads =
            button == "tbr_Refresh" && reads + (work == "load") == 1 && work != "program";
        const bool programs = button == "tbr_ProgramRadio" && work != "save";
        if (stillOpen) {
          EXPECT_EQ(times("unit"), reads + (rereads || programs ? 1 : 0));
          EXPECT_EQ(times("PWR 21"), work == "program" || (programs && work == "read") ? 1 : 0);
        }
        EXPECT_EQ(std::filesystem::exists(InScratch("window.txt")), saves || work == "save");
        EXPECT_TRUE(!stillOpen || Window().ReadIdle);
      });
      EXPECT_EQ(stillOpen, button != "CloseButton" || work == "save");
      ASSERT_TRUE(Refresh());
      EndSession();
    }
  }
}

// Put off to the end of a read, the entry is looked at again: there may be no link any more.
TEST_F(RestoreFaults, AClickThatIsTooLateOpensNothing) {
  StartConnected();
  Faults().SilentFrom = Radio().CommandCount() + 3;
  OnCommand("own", [this] {
    EXPECT_TRUE(Click("mnuConfigRestore"));
    EXPECT_TRUE(Click("tbr_Disconnect"));
  });
  ExpectBox("Error").Containing("There was an error communicating");
  ASSERT_TRUE(Click("ButtonRefresh"));
  Run(Seconds(30));
  EXPECT_FALSE(WindowOpen("frmRestore"));
  EXPECT_FALSE(Port().PortOpen());
}

TEST_F(RestoreFaults, ASecondClickOrARefreshBeforeTheFirstTickChangesNothing) {
  StartConnected();
  After(Milliseconds(20), [this] { EXPECT_TRUE(Click("mnuConfigRestore")); });
  InWindowAtOnce([this] {
    EXPECT_TRUE(Click("tbr_Refresh"));
    EXPECT_TRUE(RunUntil([this] { return Window().ReadIdle; }, Seconds(90)));
    EXPECT_EQ(Current(RestoreSetting::Mode), "MODE R");
  });
}

TEST_F(RestoreFaults, QuittingWithoutAPortIsSilent) {
  StartConnected();
  InWindow([this] {
    ExpectBox("Click Cancel to quit, OK to ignore.");
    Unplug();
    Run(Seconds(1));
    Application().Form_Unload();
  });
  EXPECT_TRUE(Ended());
}

TEST_F(RestoreFaults, NamesThatBeginWithAPrompt) {
  for (const char* name : {">x", "> hello", ">>> N", "SETUP> y", "Hill >"}) {
    SCOPED_TRACE(name);
    StartConnected();
    Radio().Program("own", name);
    InWindow([&] { EXPECT_EQ(Current(RestoreSetting::OwnerName), name); });
    EndSession();
  }
}

}  // namespace
}  // namespace quillmark
