#include <gmock/gmock.h>

#include "window_bench.h"

namespace quillmark {
namespace {

using SetupModeTest = WindowBench;

TEST_F(SetupModeTest, ReadsProgramsAndKeys) {
  StartConnected({.Mode = 'M'});
  const auto question = [&](Answer answer) {
    ExpectBox("Warning")
        .Saying(
            "Setup mode is intended for bench testing only.\r\n\r\nAre you sure you want to "
            "continue?")
        .With(Icon::Exclamation)
        .With(Buttons::YesNo)
        .Reply(answer);
  };
  question(Answer::No);
  EXPECT_TRUE(Click("mnuSetupMode"));
  EXPECT_EQ(Sent(), "");
  question(Answer::Yes);
  EXPECT_TRUE(Click("mnuSetupMode"));
  EXPECT_EQ(Sent(), "setup\rrx\rtx\r");
  ASSERT_TRUE(WindowOpen("frmSetup"));
  EXPECT_EQ(Text("RxFrequency"), Radio().Setting("rx").substr(0, 7));
  EXPECT_TRUE(Enabled("ButtonRSSI"));
  const struct {
    const char *Field, *Title, *Typed, *Sent, *Shown;
  } cases[] = {
      {.Field = "RxFrequency",
       .Title = "Program Rx Frequency",
       .Typed = "915.000",
       .Sent = "rx 915.000\rrx\r",
       .Shown = "915.000"},
      {.Field = "TxFrequency",
       .Title = "Program Tx Frequency",
       .Typed = "TX 902.200",
       .Sent = "TX 902.200\rtx\r",
       .Shown = "902.200"},
      {.Field = "TxFrequency",
       .Title = "Program Tx Frequency",
       .Typed = "tx 910.000",
       .Sent = "tx tx 910.000\rtx\r",
       .Shown = "902.200"},
  };
  for (const auto& each : cases) {
    ClearLog();
    ExpectInput(each.Title).Offering(Text(each.Field)).Type(each.Typed);
    EXPECT_TRUE(Click(each.Field));
    EXPECT_EQ(Sent(), each.Sent);
    EXPECT_EQ(Text(each.Field), each.Shown);
  }
  EXPECT_EQ(As<ValueField>("RxFrequency").Mark(), "");
  EXPECT_EQ(As<ValueField>("TxFrequency").Mark(), "Sent tx tx 910.000; the radio has 902.200");
  ClearLog();
  EXPECT_FALSE(Click("DKey"));
  EXPECT_TRUE(Click("Key"));
  EXPECT_FALSE(Click("Key"));
  Run(Milliseconds(100));
  EXPECT_TRUE(Radio().Keyed());
  EXPECT_TRUE(Click("DKey"));
  ExpectBox("Transmit Frequency Information")
      .Saying(
          "This selects the test transmit frequency used in lieu of hopping when in setup "
          "mode.\r\n\r\nThe test transmit frequency can be reprogrammed to any value\r\nbetween "
          "902.200 MHz and 927.600 MHz, inclusive.");
  EXPECT_TRUE(Click("TxLabel"));
  EXPECT_TRUE(Type("txtTerm", "stat\r"));  // the terminal stays usable
  EXPECT_TRUE(Click("ExitButton"));
  EXPECT_EQ(Sent(), "KEY\rDKEY\rstat\rquit\r");
  EXPECT_FALSE(Enabled("ButtonRSSI"));
  EXPECT_FALSE(Shared().InSetupMode);
  EXPECT_TRUE(Shared().RefreshRequested);
}

TEST_F(SetupModeTest, TheOtherWaysInAndOut) {
  StartConnected({.Password = "abcd"});
  ExpectBox("Warning").Reply(Answer::Yes);
  ExpectBox("Error!")
      .Saying("You must be logged in before entering setup mode.")
      .With(Icon::Exclamation);
  EXPECT_TRUE(Click("mnuSetupMode"));
  EXPECT_FALSE(WindowOpen("frmSetup"));
  ASSERT_TRUE(Click("tbr_Disconnect"));
  UseRadio({});
  ASSERT_TRUE(Connect());
  // Closed by its box the radio stays in the mode; the next read finds that out.
  ExpectBox("Warning").Reply(Answer::Yes);
  EXPECT_TRUE(Click("mnuSetupMode"));
  EXPECT_TRUE(CloseWindow("frmSetup"));
  EXPECT_FALSE(Shared().InSetupMode);
  ASSERT_TRUE(Refresh());
  EXPECT_TRUE(Shared().InSetupMode);
  EXPECT_EQ(Text("Mode"), "MODE R");
  // A silent radio: the window opens with nothing in its fields.
  Faults().SilentFrom = 1;
  ExpectBox("Warning").Reply(Answer::Yes);
  const Duration began = Now();
  EXPECT_TRUE(Click("mnuSetupMode"));
  EXPECT_EQ(Now() - began, Seconds(3) + 2 * (Seconds(4) + Milliseconds(100)));
  EXPECT_EQ(Text("RxFrequency"), "n/a");
  EXPECT_TRUE(CloseWindow("frmSetup"));
}

TEST_F(SetupModeTest, AKeyedTransmitterIsShownUntilItIsKnownToBeOff) {
  StartConnected({.Mode = 'M'});
  const auto shown = [&] {
    const bool warns = As<Lamp>("imgConnected").Warns();
    EXPECT_EQ(warns, As<Lamp>("imgNotConnected").Warns());
    EXPECT_EQ(warns, Visible("Transmitting"));
    EXPECT_EQ(ToolTip("imgConnected"),
              (warns ? Text("Transmitting") + " " : "") + "Click to disconnect...");
    if (WindowOpen("frmSetup")) {
      const bool sure = Text("Transmitting") == "The transmitter is keyed.";
      const std::string mark = sure ? "KEYED - " : "MAY BE KEYED - ";
      EXPECT_EQ(Text("frmSetup"), (warns ? mark : "") + "Setup Mode");
    }
    return warns ? Text("Transmitting") : "off";
  };
  const std::string keyed = "The transmitter is keyed.";
  const std::string unknown = "The transmitter may still be keyed.";
  const auto enter = [&] {
    ExpectBox("Warning").Reply(Answer::Yes);
    EXPECT_TRUE(Click("mnuSetupMode"));
  };
  enter();
  EXPECT_EQ(shown(), "off");
  const struct {
    const char* Click;
    const char* Typed;
    std::string Shown;
  } acts[] = {{"Key", "", keyed},    {"DKey", "", "off"},   {"", "kex\by\r", keyed},
              {"", "stat\r", keyed}, {"", "dkey\r", "off"}, {"Key", "", keyed}};
  for (const auto& act : acts) {
    EXPECT_TRUE(*act.Click == '\0' ? Type("txtTerm", act.Typed) : Click(act.Click));
    Run(Milliseconds(500));
    EXPECT_EQ(shown(), act.Shown) << act.Click << act.Typed;
    EXPECT_EQ(Radio().Keyed(), act.Shown == keyed);
  }
  // A word that was hurt on its way unkeys nothing.
  Faults().GarbleToRadio = Line().BytesToRadio() + 2;
  EXPECT_TRUE(Click("DKey"));
  Run(Milliseconds(500));
  EXPECT_EQ(shown(), Radio().Keyed() ? keyed : "off");
  EXPECT_TRUE(Radio().Keyed());
  // Closed by its box, the window leaves the radio as it is.
  EXPECT_TRUE(CloseWindow("frmSetup"));
  EXPECT_EQ(shown(), keyed);
  enter();
  EXPECT_EQ(shown(), keyed);
  EXPECT_TRUE(Click("tbr_Disconnect"));
  EXPECT_EQ(shown(), unknown);
  EXPECT_TRUE(CloseWindow("frmSetup"));
  ASSERT_TRUE(Connect());  // which leaves the mode
  EXPECT_EQ(shown(), "off");
  enter();
  EXPECT_TRUE(Click("Key"));
  EXPECT_EQ(shown(), keyed);
  EXPECT_TRUE(Click("ExitButton"));
  Run(Milliseconds(500));
  EXPECT_EQ(shown(), "off");
}

}  // namespace
}  // namespace quillmark
