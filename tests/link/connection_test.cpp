#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "sim/bench.h"

namespace quillmark {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string closLine =
    "*** CLOS command sent to the radio before disabling the COMM port. ***\r\n";
const std::string lostRadio =
    "There was an error communicating with the radio. Please reconnect and try again";
const std::string wakeRound = "\x1B\r\n\r\r\r\r\r\r\r\r";

class ConnectionTest : public sim::Bench {
 public:
  std::vector<std::string> RadioMenus(bool enabled) {
    std::vector<std::string> names;
    for (const char* name :
         {"tbr_TransmitTextFile", "mnuSendText", "mnuAccessCode", "mnuEncryptCode", "mnuSetupMode",
          "mnuConfigRestore", "mnuRadioPassSub", "mnuSetPass", "cmdSaveToFile", "cmdSaveToPreset",
          "cmdProgramFromFile", "cmdMaster", "cmdRemote", "cmdRepeater", "cmdSubRemote", "cmbBaud",
          "txtNewADDR", "sldPwr", "cmdPrint"}) {
      if (Enabled(name) == enabled) names.emplace_back(name);
    }
    return names;
  }
  // What the window shows of the link must agree with the port.
  void ExpectShown(bool connected) {
    EXPECT_EQ(Port().PortOpen(), connected);
    EXPECT_EQ(Visible("imgConnected"), connected);
    EXPECT_EQ(Visible("imgNotConnected"), !connected);
    EXPECT_EQ(Enabled("tbr_Disconnect"), connected);
    EXPECT_EQ(Enabled("tbr_Connect"), !connected);
    EXPECT_EQ(Checked("mnuOpen"), connected);
    EXPECT_EQ(Text("pnl_Settings"), connected ? "Settings: 19200,N,8,1" : "Settings: ");
    EXPECT_THAT(RadioMenus(!connected), ElementsAre());
  }
};

TEST_F(ConnectionTest, ConnectingWakesResetsAndOpensTheSession) {
  Random().Fixed = 0;  // 400 ms after each escape
  Start();
  ExpectShown(false);
  const Duration began = Now();
  After(Milliseconds(1650), [&] { EXPECT_EQ(Text("txtTerm"), "Connected"); });
  ASSERT_TRUE(Click("tbr_Connect"));
  // Two rounds: what the first one stirs up is seen by the second.
  EXPECT_EQ(Sent(), wakeRound + wakeRound + "\rOPEN\r\r");
  EXPECT_EQ(Port().Openings(), 2);
  EXPECT_TRUE(Shared().RefreshRequested);
  EXPECT_TRUE(Radio().SessionOpen());
  EXPECT_EQ((Now() - began) / Milliseconds(50), 36);
  ExpectShown(true);
  EXPECT_TRUE(Enabled("tbr_Login"));
  EXPECT_EQ(Text("pnl_Status"), "Status: Connecting........");  // and two seconds later no more
  Run(Seconds(2));
  EXPECT_EQ(Text("pnl_Status"), "Status: ");
  for (const char* preset : {"cmdPre_0", "cmdPre_5"}) EXPECT_FALSE(Enabled(preset));
}

TEST_F(ConnectionTest, ADeadRadioIsGivenUpAfterThirtyRounds) {
  Random().Fixed = 0.9999;  // 1100 ms after each escape
  Start();
  Faults().SilentFrom = 1;
  const Duration began = Now();
  std::string lastDots;
  After(Seconds(43.6), [&] { lastDots = Text("pnl_Status"); });
  ASSERT_TRUE(Click("imgNotConnected"));
  EXPECT_EQ(lastDots, "Status: Connecting...." + std::string(28 + 3, '.'));
  EXPECT_NEAR(static_cast<double>((Now() - began).count()), 45e6, 0.05e6);
  std::string rounds;
  for (int i = 0; i < 30; ++i) rounds += wakeRound;
  EXPECT_EQ(Sent(), rounds + "CLOS\r");
  EXPECT_EQ(Text("txtTerm"), "Error. Please reconnect.");
  EXPECT_EQ(Text("pnl_Status"), "Status: Error. Please reconnect.");
  EXPECT_TRUE(Main().NotConnected);
  ExpectShown(false);
  EXPECT_EQ(Text("pnl_ConnectTime"), "");
}

// At once, wherever in a round that is.
TEST_F(ConnectionTest, DisconnectingWhileWakingEndsIt) {
  Random().Fixed = 0.9999;  // 1100 ms after each escape
  Start();
  for (const int moment : {100, 1250, 2900}) {
    UseRadio({});
    Faults().SilentFrom = 1;
    Duration clicked{};
    After(Milliseconds(moment), [&] {
      clicked = Now();
      EXPECT_TRUE(Click("tbr_Disconnect"));
    });
    ASSERT_TRUE(Click("tbr_Connect"));
    EXPECT_LE(Now() - clicked, Milliseconds(10)) << moment;
    EXPECT_EQ(Text("txtTerm"), "Disconnected");
    EXPECT_EQ(Text("pnl_Status"), "Status: ");
    EXPECT_THAT(Sent(), EndsWith("CLOS\r"));
    ExpectShown(false);
  }
  // And it can be connected again.
  UseRadio({});
  EXPECT_TRUE(Connect());
  ExpectShown(true);
}

TEST_F(ConnectionTest, APortThatDoesNotOpenSaysWhy) {
  using State = sim::VirtualSockets::State;
  const struct {
    State Is;
    const char* Details;
  } cases[] = {{State::Empty, "No such file"},
               {State::TakenByOthers, "busy"},
               {State::Forbidden, "Permission denied"}};
  Start();
  for (const auto& each : cases) {
    Sockets().At(1).Is = each.Is;
    ExpectBox("Error")
        .Saying("The selected COM port is not available. Please select another port.")
        .With(Icon::Exclamation);
    ASSERT_TRUE(Click("tbr_Connect"));
    EXPECT_THAT(Boxes().back().Details, HasSubstr(each.Details));
    EXPECT_EQ(Text("txtTerm"), "Disconnected");
    EXPECT_TRUE(Main().NotConnected);
    ExpectShown(false);
  }
}

TEST_F(ConnectionTest, ARadioInSetupModeIsToldToQuit) {
  UseRadio({.StartInSetup = true});
  Start();
  ASSERT_TRUE(Connect());
  EXPECT_THAT(SentCommands(), ::testing::Contains("QUIT"));
  EXPECT_EQ(Radio().At(), sim::Level::Command);
  EXPECT_FALSE(Shared().InSetupMode);
}

TEST_F(ConnectionTest, ARadioInItsLoaderIsConnectedAndNotRead) {
  UseRadio({.StartInLoader = true});
  Start();
  ExpectBox("Radio Error")
      .Saying(
          "ERROR - This radio needs software!\r\rUse the 'Radio Firmware Upgrade' option to "
          "upload a .s28 firmware file to the radio.\r\rVisit the Kelvor website to obtain the "
          "most recent release of firmware.")
      .With(Icon::Critical);
  OnCommand("OPEN", [&] { EXPECT_TRUE(Click("ButtonRefresh")); });
  ASSERT_TRUE(Click("tbr_Connect"));
  EXPECT_FALSE(Shared().RefreshRequested);
  Run(Seconds(10));
  EXPECT_EQ(ReadCycles(), 0);
  ExpectShown(true);
  // Nor does a read that is asked for touch the rows.
  ASSERT_TRUE(Refresh());
  EXPECT_EQ(Text("Mode"), "n/a");
  EXPECT_EQ(Text("SerialNumber"), "n/a");
}

TEST_F(ConnectionTest, APortTakenByAnotherWhileItIsReset) {
  Start();
  Port().FailOpening(2);
  ExpectBox("Error").Containing("not available");
  ASSERT_TRUE(Click("tbr_Connect"));
  EXPECT_FALSE(Main().DiscardReceived);
  ExpectShown(false);
}

TEST_F(ConnectionTest, PortOpenOnAnOpenPortConnectsAnew) {
  Start();
  ASSERT_TRUE(Connect());
  ClearLog();
  ASSERT_TRUE(Click("mnuOpen"));
  EXPECT_THAT(Sent(), StartsWith("CLOS\r\x1B\r\n"));
  EXPECT_THAT(Sent(), EndsWith("\rOPEN\r\r"));
  ExpectShown(true);
  EXPECT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
}

TEST_F(ConnectionTest, DisconnectSendsClosAndSwitchesEverythingOff) {
  Start();
  ASSERT_TRUE(Connect());
  ClearLog();
  ASSERT_TRUE(Click("imgConnected"));
  EXPECT_EQ(Sent(), "CLOS\r");
  EXPECT_EQ(Text("txtTerm"), closLine + "Disconnected");
  EXPECT_EQ(Text("pnl_Status"), "Status: ");
  EXPECT_FALSE(Enabled("tbr_Logout"));
  EXPECT_FALSE(Enabled("tbr_Login"));
  ExpectShown(false);
  Run(Seconds(600));
  EXPECT_EQ(Sent(), "CLOS\r");
  EXPECT_EQ(Text("Mode"), "MODE R");  // rows keep what was read
  // The menu connects again, quick tasks and all.
  ASSERT_TRUE(Click("mnuOpen"));
  ExpectShown(true);
}

TEST_F(ConnectionTest, LogoutIsSentAndShown) {
  Start();
  ASSERT_TRUE(Connect());
  ClearLog();
  ASSERT_TRUE(Click("tbr_Logout"));
  EXPECT_EQ(Sent(), "PASS NONE\r");
  EXPECT_EQ(Text("txtTerm"), "*** LOGGED OUT ***");
  EXPECT_TRUE(Enabled("tbr_Login"));
  EXPECT_FALSE(Enabled("tbr_Logout"));
}

TEST_F(ConnectionTest, AnAdapterPulledAndPluggedInAgain) {
  Start();
  ASSERT_TRUE(Connect());
  const auto expectUnplugBox = [&] {
    ExpectBox("Click Cancel to quit, OK to ignore.")
        .Saying("Unknown error or event")
        .With(Buttons::OkCancel)
        .Do([&] { ExpectShown(false); });  // not only when it has been answered
  };
  // While idle: told at once, and nothing pretends to be connected.
  expectUnplugBox();
  Unplug();
  Run(Milliseconds(10));
  CheckExpectations();
  ExpectShown(false);
  EXPECT_EQ(DesktopSeen().Beeps, 1);
  EXPECT_TRUE(Boxes().back().Details.ends_with("Plug it in again, then click Connect..."));
  Plug();
  ASSERT_TRUE(Connect());
  ExpectShown(true);
  // In the middle of a read: the box, then the read's own end.
  expectUnplugBox();
  ExpectBox("Error").Saying(lostRadio).With(Icon::Exclamation);
  OnCommand("pwr", [&] { Unplug(); });
  EXPECT_TRUE(Click("ButtonRefresh"));
  Run(Seconds(10));
  ExpectShown(false);
}

TEST_F(ConnectionTest, TheWatchdogOfScriptedRuns) {
  Start();
  ASSERT_TRUE(Connect());
  Main().tmrPortTO.Enabled = true;
  ExpectBox("Radio Communications Error")
      .Saying(
          "Radio Communication Error.\r\n\r\nPlease Reconnect.\r\n\r\nIf there is still a "
          "problem, please check all cabling and the power supply.");
  Run(Milliseconds(1900));
  EXPECT_FALSE(Main().PortTimedOut);
  Run(Milliseconds(200));
  EXPECT_TRUE(Main().PortTimedOut);
  EXPECT_FALSE(Main().tmrPortTO.Enabled());
  EXPECT_FALSE(Enabled("cmdMaster"));
  EXPECT_TRUE(Enabled("cmdReadRadio"));
}

}  // namespace
}  // namespace quillmark
