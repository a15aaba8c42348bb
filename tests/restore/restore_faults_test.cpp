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
  }
};

TEST_F(RestoreFaults, ThePlugIsPulledWhileTheWindowOpens) {
  StartConnected();
  After(Milliseconds(20), [&] { Unplug(); });
  ExpectBox("Click Cancel to quit, OK to ignore.");
  ASSERT_TRUE(Click("mnuConfigRestore"));  // and no window comes
  Plug();
  ASSERT_TRUE(Connect());
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

// A click on a button in the middle of a read, a load, a programming run or a save.
class ClickInTheMiddle : public RestoreFaults {
 public:
  // In the window: the click, and what it brought.
  void Try(const std::string& work, const std::string& button) {
    LoadText("MODE M\nPWR 21\n");
    const bool saves = button == "tbr_SaveConfig" && work != "save";
    if (saves) ExpectSaveFile("Radio Configuration Save").Choose(InScratch("window.txt"));
    // A programming run takes no clicks; they come at its end, before the read.
    if (button == "tbr_OpenConfig" && work == "program") {
      ExpectOpenFile("Configuration File Selection");
    }
    ClearLog();
    bool clicked = false;
    Begin(work, [&] {
      clicked = Click(button);
      if (saves && work == "read") Click(button);  // once is enough
    });
    RunUntil([&] { return !Window().Loaded(); }, Seconds(30));
    EXPECT_EQ(clicked, work != "save") << "a save takes no clicks";
    if (Window().Loaded()) {
      ExpectSent(work, button);
      EXPECT_TRUE(Window().ReadIdle);
    }
    EXPECT_EQ(std::filesystem::exists(InScratch("window.txt")), saves || work == "save");
  }

 private:
  void Begin(const std::string& work, const std::function<void()>& click) {
    if (work == "load") {
      After(Milliseconds(150), click);
      LoadText("MODE M\nPWR 22\nCTS 4\nRXD 1\n");
    } else if (work == "save") {
      After(Milliseconds(500), click);
      Save();
    } else if (work == "read") {
      Window().At(SettingId::PowerLevel).Check.Checked = true;
      After(Milliseconds(2000), click);
      Click("tbr_Refresh");
    } else {
      Click("CheckAllButton");
      After(Milliseconds(20), click);
      Click("tbr_ProgramRadio");
    }
  }

  void ExpectSent(const std::string& work, const std::string& button) {
    const auto sent = SentCommands();
    const auto times = [&](const char* command) {
      return std::count(sent.begin(), sent.end(), command);
    };
    const int reads = work == "read" || work == "program" ? 1 : 0;
    const bool rereads = button == "tbr_Refresh" && (work == "read" || work == "load");
    const bool programs = button == "tbr_ProgramRadio" && work != "save";
    EXPECT_EQ(times("unit"), reads + (rereads || programs ? 1 : 0));
    EXPECT_EQ(times("PWR 21"), work == "program" || (programs && work == "read") ? 1 : 0);
  }
};

TEST_F(ClickInTheMiddle, OfEveryWorkOnEveryButton) {
  const char* const buttons[] = {"tbr_OpenConfig", "tbr_SaveConfig", "tbr_ProgramRadio",
                                 "tbr_Refresh",    "CheckAllButton", "UnCheckAllButton",
                                 "ModeCheck",      "CloseButton"};
  for (const std::string work : {"read", "load", "program", "save"}) {
    for (const std::string button : buttons) {
      SCOPED_TRACE(std::string(button).append(" during a ").append(work));
      std::filesystem::remove(InScratch("window.txt"));
      StartConnected({.Mode = 'M'});
      bool stillOpen = false;
      InWindow([&] {
        Try(work, button);
        stillOpen = Window().Loaded();
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
    EXPECT_EQ(Current(SettingId::Mode), "MODE R");
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

}  // namespace
}  // namespace quillmark
