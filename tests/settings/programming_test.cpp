#include <gmock/gmock.h>

#include "sim/bench.h"

namespace quillmark {
namespace {

class ProgrammingTest : public sim::Bench {
 public:
  // Connected, with the settings in view.
  void ShowSettings(sim::SimRadioOptions options = {}) {
    StartConnected(std::move(options));
    ASSERT_TRUE(Click("ButtonAdv"));
  }
  // Answers the row's input box and lets the read that follows run.
  void Enter(const std::string& row, const std::string& title, const std::string& answer) {
    ClearLog();
    ExpectInput(title).Offering(Text(row)).Type(answer);
    EXPECT_TRUE(Click(row)) << row;
    CheckExpectations();
  }
};

constexpr struct {
  const char *Row, *Title, *Prompt, *Answer, *Sent;
} inputRows[] = {
    {"NetworkAddress", "Program Network Address",
     "Enter a new radio Network Address:\r\r1-65000 or NONE", "1234", "addr 1234"},
    {"NetworkAddress", "Program Network Address",
     "Enter a new radio Network Address:\r\r1-65000 or NONE", "addr 77", "addr 77"},
    {"OwnerMessage", "Program Owner's Message", "Enter a new Owner's Message up to 30 characters",
     "Hill top", "owm Hill top"},
    {"OwnerName", "Program Owner's Name", "Enter a new Owner's Name up to 30 characters", "Kelvor",
     "own Kelvor"},
    {"PowerLevel", "Program Power Output Level",
     "Enter a new Power Level:\r\r20dBm through 30dBm in 1dBm steps", "PWR 21 dBm", "pwr 21 dBm"},
    {"RxTimeOut", "Program Receive Timeout Timer",
     "Program  Receive Timeout timer in minutes; 1-1440 or NONE", "rxtot 5", "rxtot 5"},
    {"SkippedZones", "Program Skipped Zones",
     "Enter up to four skipped zones (1-8) or type 'NONE' for no skipped zones. (i.e. 1,2,5):",
     "SKIP 3 1", "skip 3 1"},
    {"RetryCount", "Program Transmission Retry Count",
     "Program the transmission count (for robust mode), 0-10:", "4", "retry 4"},
    {"AlarmMask", "Program Alarm Mask",
     "Enter a new major alarm mask:\r\r(0000 0000) to (FFFF FFFF)", "MASK: 0000 00FF",
     "amask  0000 00FF"},
    {"AlarmSense", "Set Alarm Sense",
     "Enter 'HI' or 'LO' to change the sense of the alarm output signal (active high or active "
     "low):",
     "ALARM ACTIVE: HI", "asense HI"},
    {"BaudRate", "Program Data Baud Rate",
     "Enter a new baud rate and/or format (ie 9600 8N1):", "BAUD 9600 8N1", "baud 9600 8N1"},
    {"Port", "Program Payload Port",
     "Enter the port type to use for the payload port (RS232 or RS485):", "RS485", "port RS485"},
    {"CTSdelay", "Program CTS Delay", "Enter a new CTS delay from 0-255 msec:", "CTS 12", "cts 12"},
    {"RepeatCount", "Program Repeat Count",
     "Program the repeat count for the master, 0-10:", "REPEAT 3", "repeat 3"},
    {"UnitAddr", "Program Unit Address", "Enter the Unit Address:\r\r  10000 to 65000",
     "UNIT 12345", "unit 12345"},
    {"HopTime", "Program Hop Time", "Enter the Hop Time value (7 or 28 msec):", "28", "hoptime 28"},
    {"XADDR", "Program extension address", "Enter the extension address (0-31):", "XADDR 3",
     "xaddr  3"},
    {"XPRI", "Program Primary Extension Address",
     "Enter the address for the primary extension radio (0-31 or 'NONE'):", "XPRI 1", "xpri  1"},
    {"XRSSI", "Program Minimum RSSI",
     "Enter the minimum tolerance value for the extension radio's RSSI (-120 -- -40):", "90",
     "xrssi -90"},
    {"XRSSI", "Program Minimum RSSI",
     "Enter the minimum tolerance value for the extension radio's RSSI (-120 -- -40):", "XRSSI -80",
     "xrssi  -80"},
    {"LPM", "Program Low Power Mode",
     "Enter the Low Power Mode selection to use for this radio network (0 -- 7):", "LPM 2",
     "lpm  2"},
    {"LPMHOLD", "Program Low Power Mode Holdover Timer",
     "Enter the value of the Low Power Mode Holdover timer (in milliseconds) to use for this "
     "radio (0 -- 1000):",
     "LPMHOLD 20", "lpmhold  20"},
    {"CSADDR", "Program Clock Sync Address",
     "Enter the Network Address of the designated Clock Sync Master (1 -- 65000):", "CSADDR 9",
     "csaddr  9"},
    {"RXD", "Program Receive Data Holdover Timer",
     "Enter the value of the Receive Data Holdover timer (in milliseconds) to use for this radio "
     "(0 -- 255):",
     "RXD 30", "rxd  30"},
    {"CTSHOLDdelay", "Program CTSHOLD Delay",
     "Program CTS holdover delay from 0-6000msec. for DEVICE = CTS KEY operation:", "CTSHOLD 40",
     "ctshold 40"},
    {"Mode", "Program Radio Mode",
     "Enter 'M' for a master, 'R' for a remote or 'X' for an extension (used in Store & Forward "
     "mode):",
     "MODE X", "mode X"},
};

TEST_F(ProgrammingTest, EachInputRowSendsItsCommand) {
  ShowSettings({.Mode = 'M'});
  for (const auto& each : inputRows) {
    SCOPED_TRACE(std::string(each.Row) + " " + each.Answer);
    Enter(each.Row, each.Title, each.Answer);
    EXPECT_EQ(Boxes().back().Text, each.Prompt);
    EXPECT_EQ(Boxes().back().Objection, "");
    EXPECT_EQ(Sent(), std::string(each.Sent) + "\r");
    EXPECT_TRUE(Shared().RefreshRequested);
    const int before = ReadCycles();
    ASSERT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
  }
  EXPECT_EQ(Text("PowerLevel"), "PWR 21 dBm");
  EXPECT_EQ(Text("SkippedZones"), "SKIP 1,3");
  EXPECT_EQ(Text("AlarmMask"), "MASK: 0000 00FF");
  EXPECT_EQ(Text("Mode"), "MODE X");
}

// The command that the answer becomes is judged, and sent whatever is wrong with it.
TEST_F(ProgrammingTest, TheBoxTellsWhatRadiosTakeAndWhatIsWrongWithAnAnswer) {
  ShowSettings({.Mode = 'R'});
  const struct {
    const char *Row, *Title, *Hint, *Answer, *Objection, *Sent;
  } cases[] = {
      {"PowerLevel", "Program Power Output Level",
       "Radios take 20 to 30 dBm. Factory value: 30 dBm.", "PWR 45 dBm",
       "PWR 45 dBm: radios take 20 to 30 dBm", "pwr 45 dBm\r"},
      {"XRSSI", "Program Minimum RSSI",
       "Radios take -120 to -40 dBm. Factory value: -120 dBm. Radios from 2.0.0 on have it.", "30",
       "XRSSI -30: radios take -120 to -40 dBm", "xrssi -30\r"},
      {"NetworkAddress", "Program Network Address",
       "Radios take 1 to 65000 or NONE. Factory value: NONE.", "CSADDR 7",
       "CSADDR 7: this does not set ADDR", "CSADDR 7\r"},
      {"OwnerName", "Program Owner's Name", "Radios take up to 30 characters.", "", "", ""},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Answer);
    Enter(each.Row, each.Title, each.Answer);
    EXPECT_EQ(Boxes().back().Hint, each.Hint);
    EXPECT_EQ(Boxes().back().Objection, each.Objection);
    EXPECT_EQ(Sent(), each.Sent);
    if (*each.Sent == '\0') continue;
    const int before = ReadCycles();
    ASSERT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
  }
}

TEST_F(ProgrammingTest, RowsOfOldRevisions) {
  ShowSettings({.Revision = "1.9.0", .Mode = 'X'});
  Enter("XMIN", "Program Minimum Extension Addresses", "XMIN 2");
  EXPECT_EQ(Sent(), "xmin  2\r");
  Enter("XMAX", "Maximum Extension Addresses", "XMAX 7");
  EXPECT_EQ(Sent(), "xmax  7\r");
  Enter("XADDR", "Program extension address", "5");
  EXPECT_EQ(Boxes().back().Text, "Enter the extension address (0-63):");
}

TEST_F(ProgrammingTest, WhatTheUserCanTypeIsSentOrStopped) {
  ShowSettings({.Mode = 'R'});
  const std::string title = "Program Owner's Message";
  ExpectInput(title);  // Cancel, and an empty answer
  EXPECT_TRUE(Click("OwnerMessage"));
  EXPECT_EQ(Sent(), "");
  EXPECT_FALSE(Shared().RefreshRequested);
  // A carriage return would be a second command.
  Enter("OwnerMessage", title, "two\rlines\n\x1B");
  EXPECT_EQ(Sent(), "owm twolines\r");
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
  Enter("OwnerMessage", title, std::string(10000, 'x'));
  EXPECT_EQ(Sent(), "owm " + std::string(10000, 'x') + "\r");
  // The mode allows it or not, whatever the row's look.
  Main().At(SettingId::RepeatCount).Enabled = true;
  EXPECT_TRUE(Click("RepeatCount"));
  // The port is asked after the box.
  ASSERT_TRUE(Click("tbr_Disconnect"));
  Enter("OwnerMessage", title, "late");
  EXPECT_EQ(Sent(), "");
}

TEST_F(ProgrammingTest, ARefusalAndSilenceCostThreeSeconds) {
  ShowSettings({.Mode = 'M', .Password = "abcd"});
  Duration began = Now();
  Enter("PowerLevel", "Program Power Output Level", "20");
  EXPECT_EQ(Now() - began, Seconds(3));
  EXPECT_TRUE(Shared().RefreshRequested);
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
  EXPECT_EQ(Text("PowerLevel"), "PWR 30 dBm");
  Faults().SilentFrom = Radio().CommandCount() + 1;
  Faults().SilentUntil = Radio().CommandCount() + 1;
  began = Now();
  Enter("AlarmMask", "Program Alarm Mask", "MASK: 0000 0000");
  EXPECT_EQ(Now() - began, Seconds(3));
  // The mask alone does not wait for the radio's consent.
  Faults() = {};
  began = Now();
  Enter("AlarmMask", "Program Alarm Mask", "MASK: 0000 0000");
  EXPECT_LT(Now() - began, Seconds(1));
}

TEST_F(ProgrammingTest, OnOffRowsAskBeforeTheyTurn) {
  const struct {
    char Mode;
    const char *Row, *Title, *Question, *Sent, *After;
  } cases[] = {
      {'M', "DataBuff", "Data Buffering Setting", "Turn Data Buffering off?", "buff OFF",
       "BUFF OFF"},
      {'M', "DataBuff", "Data Buffering Setting", "Turn Data Buffering on?", "buff ON", "BUFF ON"},
      {'M', "FEC", "Forward Error Correction Setting", "Turn Forward Error Correction on?",
       "fec ON", "FEC ON"},
      {'M', "StoreAndForward", "Store and Forward Mode Setting", "Turn Store & Forward mode on?",
       "saf ON", "SAF ON"},
      {'R', "SleepMode", "Sleep Mode Setting", "Turn Sleep mode on?", "sleep ON", "SLEEP ON"},
      {'R', "SleepMode", "Sleep Mode Setting", "Turn Sleep mode off?", "sleep OFF", "SLEEP OFF"},
  };
  ShowSettings({.Mode = 'M'});
  char mode = 'M';
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Question);
    if (each.Mode != mode) {
      mode = each.Mode;
      Radio().Program("mode", std::string(1, mode));
      ASSERT_TRUE(Refresh());
    }
    const auto box = [&]() -> sim::Expectation& {
      return ExpectBox(each.Title).Saying(each.Question).With(Buttons::OkCancel);
    };
    ClearLog();
    box().Reply(Answer::Cancel);
    EXPECT_TRUE(Click(each.Row));
    EXPECT_THAT(Boxes().back().Details, ::testing::StartsWith("Factory value: O"));
    EXPECT_EQ(Sent(), "");
    box().Reply(Answer::Ok);
    EXPECT_TRUE(Click(each.Row));
    EXPECT_EQ(Sent(), std::string(each.Sent) + "\r");
    const int before = ReadCycles();
    ASSERT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
    EXPECT_EQ(Text(each.Row), each.After);
  }
  // A text that is neither, and a mode that does not allow it: nothing comes up.
  Main().At(SettingId::SleepMode).Text = "SLEEP n/a";
  EXPECT_TRUE(Click("SleepMode"));
  Main().At(SettingId::FEC).Enabled = true;
  EXPECT_TRUE(Click("FEC"));
}

TEST_F(ProgrammingTest, TheDeviceTypeHasThreeAnswers) {
  ShowSettings({});
  const struct {
    Answer Button;
    const char* Sent;
  } cases[] = {
      {Answer::Cancel, ""}, {Answer::No, "device CTS KEY\r"}, {Answer::Yes, "device DCE\r"}};
  for (const auto& each : cases) {
    ClearLog();
    ExpectBox("Program Device Type")
        .Saying("Program Device Type to DCE?\r\rYES for DCE      NO for CTS KEY")
        .With(Buttons::YesNoCancel)
        .Reply(each.Button);
    EXPECT_TRUE(Click("DeviceType"));
    EXPECT_EQ(Sent(), each.Sent);
  }
}

TEST_F(ProgrammingTest, ShowSyncAndTheStatusReport) {
  ShowSettings({});
  Main().At(SettingId::ShowSync).Text = "old";
  EXPECT_TRUE(Click("ShowSync"));
  EXPECT_EQ(Sent(), "show sync\r");
  EXPECT_EQ(Text("ShowSync"), "DEPTH 1 UNIT 1000 XADDR 0");
  EXPECT_FALSE(Shared().RefreshRequested);
  // A reply of an odd shape leaves the field as it was.
  Radio().SetReply("show sync", "", true);
  EXPECT_TRUE(Click("ShowSync"));
  EXPECT_EQ(Text("ShowSync"), "DEPTH 1 UNIT 1000 XADDR 0");
  ClearLog();
  Main().txtTerm.Text = "";
  EXPECT_TRUE(Click("AlarmInfo"));
  EXPECT_EQ(Sent(), "stat\r\r\r");
  EXPECT_FALSE(Shared().RefreshRequested);
  Run(Seconds(1));
  EXPECT_THAT(Text("txtTerm"), ::testing::EndsWith(">"));
}

}  // namespace
}  // namespace quillmark
