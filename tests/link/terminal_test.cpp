#include <gmock/gmock.h>

#include <iterator>
#include <string>

#include "link/terminal_bench.h"

namespace quillmark {
namespace {

using TerminalTest = TerminalBench;

TEST_F(TerminalTest, ReceivedTextIsFilteredForTheBoxAndKeptRawForTheProgram) {
  StartEmpty();
  const struct {
    std::string Before, Received, Shown;
  } cases[] = {
      {"", "ab\b\bc", "c"},
      {"MODE M", "\bR", "MODE R"},      // reaches back into the box
      {"MODE M", "\b\b\bR", "MODE R"},  // but for one character only
      {"", "\b\bx", "x"},               // nothing there to take away
      {"", "a\n\rb\r\nc\r", "a\r\nb\r\nc\r\n"},
      {"", std::string("a\0\x1B\xFF>", 5), std::string("a\0\x1B\xFF>", 5)},
      {"", "ab\b\b\b\bcd\r", "cd\r\n"},
  };
  for (const auto& each : cases) {
    Main().txtTerm.Text = each.Before;
    Shared().RxBuffer = " ";
    RadioSays(each.Received);
    EXPECT_EQ(Text("txtTerm"), each.Shown);
    EXPECT_EQ(Shared().RxBuffer.View(), " " + each.Received);
  }
  // A carriage return and its line feed in two arrivals make one line end.
  Main().txtTerm.Text = "";
  RadioSays("one\r");
  RadioSays("\ntwo");
  EXPECT_EQ(Text("txtTerm"), "one\r\ntwo");
}

TEST_F(TerminalTest, TheBoxIsCutAtItsHead) {
  StartEmpty();
  Main().txtTerm.Text = std::string(4096, 'a') + std::string(11904, 'b');  // 16000: not yet
  RadioSays("x");
  EXPECT_EQ(Text("txtTerm").size(), 16001U);
  RadioSays("y");
  EXPECT_EQ(Text("txtTerm"), std::string(11904, 'b') + "xy");
}

TEST_F(TerminalTest, TheFlagsThatGuardTheBox) {
  StartEmpty();
  const auto log = OpenLog("session.log");
  Main().TerminalEcho = false;
  Shared().RxBuffer = " ";
  RadioSays("hidden\r");
  EXPECT_EQ(Text("txtTerm"), "");
  EXPECT_EQ(FileText(log), "hidden\r\n");
  Main().DiscardReceived = true;
  RadioSays("thrown away");
  EXPECT_EQ(Shared().RxBuffer.View(), "  ");
  EXPECT_EQ(FileText(log), "hidden\r\n ");
  Main().DiscardReceived = false;
  Main().HoldPort();
  RadioSays("for a script");
  EXPECT_EQ(FileText(log), "hidden\r\n ");
  EXPECT_EQ(Port().Input(), "for a script");
}

TEST_F(TerminalTest, ClosedInAnyReplyDisablesTheRadioActions) {
  StartEmpty();
  RadioSays("clo");
  EXPECT_TRUE(Enabled("cmdMaster"));
  RadioSays("sed");
  EXPECT_FALSE(Enabled("cmdMaster") || Enabled("cmdSaveToFile") || Enabled("sldPwr"));
  EXPECT_TRUE(Enabled("cmdReadRadio"));
}

TEST_F(TerminalTest, AMegabyteWithoutAPromptIsBounded) {
  StartEmpty({.Paced = false});
  for (int i = 0; i < 5; ++i) RadioSays(std::string(256 * 1024, 'n'));
  RadioSays("tail");
  EXPECT_EQ(Shared().RxBuffer.View(), std::string(1024 * 1024 - 4, 'n') + "tail");
  EXPECT_LE(Text("txtTerm").size(), 16000U + 256U * 1024U);
}

TEST_F(TerminalTest, KeysGoToTheRadioWhileThePortIsOpen) {
  Start();
  EXPECT_TRUE(Type("txtTerm", "off line\r\b\b!"));
  EXPECT_EQ(Text("txtTerm"), "off line!");
  ASSERT_TRUE(Connect());
  ClearLog();
  Main().txtTerm.Text = "";
  EXPECT_TRUE(Type("txtTerm", "mode\r"));
  EXPECT_EQ(Text("txtTerm"), "");
  Run(Milliseconds(100));
  EXPECT_EQ(Sent(), "mode\r");
  EXPECT_EQ(Text("txtTerm"), "mode\r\nMODE R\r\n>");
}

TEST_F(TerminalTest, EventsAndErrorsOfThePort) {
  StartEmpty();
  int event = comm::Receive;
  for (const char* wording : {"Change in CTS Detected", "Change in DSR Detected",
                              "Change in CD Detected", "Connecting", "End of File Detected"}) {
    Port().Raise(++event);
    Run(Milliseconds(1));
    EXPECT_EQ(Text("pnl_Status"), std::string("Status: ") + wording);
    Run(Milliseconds(2001));
    EXPECT_EQ(Text("pnl_Status"), "Status: ");
  }
  const struct {
    int Code;
    const char* Wording;
  } errors[] = {{1001, "Break Received"},
                {1002, "CTS Timeout"},
                {1003, "DSR Timeout"},
                {1004, "Framing Error"},
                {1006, "Overrun Error"},
                {1007, "Carrier Detect Timeout"},
                {1008, "Receive Buffer Overflow"},
                {1009, "Parity Error"},
                {1010, "Transmit Buffer Full"},
                {1011, "Error retrieving DCB"},
                {1005, "Unknown error or event"},
                {42, "Unknown error or event"}};
  for (const auto& each : errors) {
    // A second error while the box of the first is up is dropped.
    ExpectBox("Click Cancel to quit, OK to ignore.")
        .Saying(each.Wording)
        .With(Icon::None)
        .Reply(Answer::Ok)
        .Do([&] {
          Port().Raise(1004);
          Run(Milliseconds(5));
        });
    Port().Raise(each.Code);
    Run(Milliseconds(1));
    EXPECT_EQ(Text("pnl_Status"), std::string("Status: ") + each.Wording);
  }
  EXPECT_EQ(DesktopSeen().Beeps, std::ssize(errors));
  EXPECT_TRUE(Port().PortOpen());
  // The wording of one does not stick to the next arrival.
  RadioSays("fine");
  EXPECT_EQ(Boxes().size(), std::size(errors));
  Run(Seconds(3));
  Main().ShowCommStatus = false;
  Port().Raise(3);
  Run(Milliseconds(1));
  EXPECT_EQ(Text("pnl_Status"), "Status: ");
  ExpectBox("Click Cancel to quit, OK to ignore.").Reply(Answer::Cancel);
  Port().Raise(1009);
  Run(Milliseconds(1));
  EXPECT_FALSE(Port().PortOpen());
  EXPECT_TRUE(Main().NotConnected);
  EXPECT_TRUE(Visible("imgNotConnected"));
}

TEST_F(TerminalTest, TheAddressOfANewRadioIsChecked) {
  StartEmpty();
  const std::string notNumeric =
      "The ADDR entered is not numeric.\r\n\r\nThe value must be a number between 1 and 65000";
  const std::string outside = "The valid ADDR range is 1-65000.";
  const struct {
    const char* Typed;
    std::string Title, Text;
  } cases[] = {{"abc", "Invalid ADDR entered", notNumeric},
               {"", "Invalid ADDR entered", notNumeric},
               {"&H10", "Invalid ADDR entered", notNumeric},
               {"0", "Invalid ADDR Entry", outside},
               {"0.5", "Invalid ADDR Entry", outside},
               {"65000.51", "Invalid ADDR Entry", outside},
               {"1", "", ""},
               {"-5", "", ""},
               {"65000.5", "", ""},
               {" 65000 ", "", ""}};
  for (const auto& each : cases) {
    if (!each.Text.empty()) ExpectBox(each.Title).Saying(each.Text);
    ASSERT_TRUE(Edit("txtNewADDR", each.Typed));
    ASSERT_TRUE(Leave("txtNewADDR"));
    CheckExpectations();
    EXPECT_EQ(Text("txtNewADDR"), each.Typed);
  }
}

}  // namespace
}  // namespace quillmark
