#include <gmock/gmock.h>

#include <algorithm>

#include "sim/bench.h"

namespace quillmark {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ",") + word;
  return text;
}

class ReadCycleTest : public sim::Bench {
 public:
  // The commands of one whole read.
  std::string ReadAgain() {
    ClearLog();
    EXPECT_TRUE(Refresh());
    return Joined(SentCommands());
  }
};

TEST_F(ReadCycleTest, TheCommandsByRevisionAndMode) {
  const std::string head =
      "ser,unit,srev,own,owm,temp,alrm,mode,pwr,baud,port,device,amask,asense,"
      "cts,ctshold,rxtot,";
  const struct {
    const char* Revision;
    char Mode;
    std::string Rest;
  } cases[] = {
      {"1.9.0", 'M',
       "sleep,addr,hoptime,skip,repeat,retry,fec,buff,saf,xaddr,xmin,xmax,show sync,"
       "options"},
      {"2.0.0", 'X',
       "sleep,addr,hoptime,skip,repeat,retry,fec,buff,saf,xaddr,xpri,xrssi,show sync,"
       "dtype,dlink,rtu,options"},
      {"2.9.9", 'R',
       "sleep,addr,hoptime,skip,repeat,retry,fec,buff,saf,xpri,xrssi,show sync,dtype,"
       "dlink,rtu,options"},
      {"3.1.9", 'R',
       "rxd,sleep,addr,csaddr,hoptime,skip,repeat,retry,fec,buff,saf,xpri,xrssi,"
       "show sync,dtype,dlink,rtu,options"},
      {"3.2.0", 'X',
       "rxd,sleep,lpmhold,addr,csaddr,hoptime,skip,lpm,repeat,retry,fec,buff,saf,xaddr,"
       "xpri,xrssi,show sync,dtype,dlink,rtu,options"},
      // A letter makes the revision unknown: all but xpri and xrssi are tried.
      {"3.2.a", 'M',
       "rxd,sleep,lpmhold,addr,csaddr,hoptime,skip,lpm,repeat,retry,fec,buff,saf,xaddr,"
       "xmin,xmax,show sync,dtype,dlink,rtu,options"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Revision);
    UseRadio({.Revision = each.Revision, .Mode = each.Mode});
    each.Revision == std::string("1.9.0") ? Start() : Restart();
    ASSERT_TRUE(Connect());
    EXPECT_EQ(ReadAgain(), head + each.Rest);
    EXPECT_EQ(Shared().InstalledFirmwareVersion, each.Revision);
    EXPECT_TRUE(Quit());
  }
}

TEST_F(ReadCycleTest, TheLineOfAWholeReadAndItsRows) {
  StartConnected({.Mode = 'M'});
  Shared().AskForRead();
  const Duration began = Now();
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
  // Every exchange in one: nothing in front, one carriage return behind, no line feed.
  EXPECT_THAT(Sent(), ::testing::StartsWith("\rser\runit\rsrev\rown\rowm\r"));
  EXPECT_THAT(Sent(), Not(HasSubstr("\n")));
  EXPECT_THAT(SentCommands(), Not(Contains("deco")));
  EXPECT_LE(Now() - began, Seconds(5));
  const struct {
    const char* Name;
    const char* Value;
  } rows[] = {{"SerialNumber", "SN 00123456"},
              {"SoftwareRev", "77-1234A01\r\n3.2.0  01Jan2009"},
              {"OwnerName", "Quillmark SS"},
              {"AlarmMask", "MASK: FFFF FFFF"},
              {"AlarmSense", "ALARM ACTIVE: HI"},
              {"CSADDR", "NOT AVAILABLE"},
              {"XADDR", "XADDR 0"},
              {"XMIN", "n/a"},
              {"XMAP", "Click to view/change"},
              {"DLINK", "DLINK 19200 (ON)"}};
  for (const auto& row : rows) EXPECT_EQ(Text(row.Name), row.Value);
}

TEST_F(ReadCycleTest, RepliesThatAreNoValues) {
  UseRadio({.LowPower = false, .RtuSelected = false, .Synchronised = false});
  Start();
  ASSERT_TRUE(Connect());
  for (const char* row : {"LPMHOLD", "LPM", "RepeatCount", "CSADDR", "XADDR"}) {
    EXPECT_EQ(Text(row), "NOT AVAILABLE") << row;
  }
  EXPECT_FALSE(Enabled("SoftRTU"));
  EXPECT_EQ(MousePointer("SoftRTU"), Pointer::NoDrop);
  // Another radio undoes it.
  ASSERT_TRUE(Click("tbr_Disconnect"));
  UseRadio({});
  ASSERT_TRUE(Connect());
  EXPECT_TRUE(Enabled("SoftRTU"));
  EXPECT_EQ(MousePointer("SoftRTU"), Pointer::Arrow);
  EXPECT_EQ(Text("LPM"), "LPM 0");
}

TEST_F(ReadCycleTest, InSetupModeAValueMayHoldAPrompt) {
  StartConnected();
  Radio().SetReply("show sync", "\r\nDEPTH 1 > UNIT 1000\r\n");
  Radio().SetReply("owm", "\r\nsite > 7\r\n");
  ASSERT_TRUE(Refresh());
  EXPECT_EQ(Text("OwnerMessage"), "sit");  // the first ">" ends it
  Type("txtTerm", "setup\r");
  Run(Milliseconds(100));
  ASSERT_TRUE(Refresh());
  EXPECT_TRUE(Shared().InSetupMode);
  EXPECT_EQ(Text("ShowSync"), "DEPTH 1 > UNIT 1000");
  EXPECT_EQ(Text("OwnerMessage"), "site > 7");
  EXPECT_EQ(Text("PowerLevel"), "PWR 30 dBm");
}

TEST_F(ReadCycleTest, AByteThatLooksLikeAPromptEndsNoValue) {
  Start();
  ASSERT_TRUE(Connect());
  Radio().Program("owm", "Peak 7");
  const std::size_t begin = Received().size();
  ASSERT_TRUE(Refresh());
  const std::size_t letter = Received().rfind("k 7") - begin;
  Faults().GarbleToHost = static_cast<std::int64_t>(Received().size() + letter + 1);
  ASSERT_TRUE(Refresh());
  EXPECT_EQ(Text("OwnerMessage"), "Peak 7");
  EXPECT_THAT(Received(), HasSubstr("Pea> 7"));
}

TEST_F(ReadCycleTest, AnEchoLeftOffIsSwitchedOnAgain) {
  StartConnected();
  Type("txtTerm", "deco\r");
  Run(Milliseconds(50));
  ASSERT_FALSE(Radio().Echo());
  Main().At(SettingId::SerialNumber).Text = "n/a";
  const std::string commands = ReadAgain();
  EXPECT_EQ(commands.substr(0, 18), "ser,eeco,ser,unit,");
  EXPECT_EQ(Text("SerialNumber"), "SN 00123456");
  EXPECT_EQ(Text("DiagOptions"), "Diagnostics ON, Low Power ON, Poll Simulator ON");
}

TEST_F(ReadCycleTest, ASilentRadioCostsFourSecondsARow) {
  StartConnected();
  Faults().SilentFrom = Radio().CommandCount() + 3;  // from srev on
  const Duration began = Now();
  ASSERT_TRUE(Refresh(Seconds(200)));
  EXPECT_EQ(Shared().SoftwareRevision.Known(), false);
  EXPECT_EQ(Text("SoftwareRev"), "77-1234A01\r\n3.2.0  01Jan2009");  // kept
  const auto reads = SentCommands().size();
  EXPECT_EQ(reads, 37U);  // all but xaddr, xpri and xrssi; the first two were answered
  EXPECT_NEAR(static_cast<double>((Now() - began).count()) / 1e6, 4.0 * 35 + 11 * 0.08, 1.2);
}

// A read that looks for the radio in vain must not open again what was closed meanwhile.
TEST_F(ReadCycleTest, ARadioThatIsLetGoWhileAReadLooksForItStaysLetGo) {
  for (const bool pulled : {false, true}) {
    SCOPED_TRACE(pulled);
    UseRadio({});
    if (!WindowOpen("frmOrvalent")) Start();
    ASSERT_TRUE(Connect());
    Faults().SilentFrom = 1;
    ASSERT_TRUE(Click("ButtonRefresh"));
    After(Seconds(2), [&] {
      if (pulled) {
        Unplug();
      } else {
        EXPECT_TRUE(Click("tbr_Disconnect"));
      }
    });
    After(Seconds(3), [&] { Plug(); });
    if (pulled) ExpectBox("Click Cancel to quit, OK to ignore.");
    ClearLog();
    Run(Seconds(60));
    EXPECT_EQ(Sent(), pulled ? "\r" : "\rCLOS\r");
    EXPECT_FALSE(Port().PortOpen());
    EXPECT_FALSE(Visible("imgConnected"));
    CheckExpectations();
  }
}

TEST_F(ReadCycleTest, SetupModeLeftInTheMiddleOfARead) {
  StartConnected();
  Type("txtTerm", "setup\r");
  Run(Milliseconds(100));
  OnCommand("unit", [&] { Type("txtTerm", "quit\r"); });
  const Duration began = Now();
  ASSERT_TRUE(Refresh());
  EXPECT_LT(Now() - began, Seconds(15));
  EXPECT_EQ(Text("DiagOptions"), "Diagnostics ON, Low Power ON, Poll Simulator ON");
}

TEST_F(ReadCycleTest, TheTickKeepsTheLinkAlive) {
  StartConnected();
  const Duration connected = Now();
  for (int i = 1; i <= 8; ++i) {
    Run(connected + Seconds(240.0 * i + 2) - Now());
    EXPECT_EQ(Sent(), std::string(static_cast<std::size_t>(i), '\r'));
  }
  EXPECT_EQ(ReadCycles(), 1);
  Run(Seconds(250));  // from then on a whole read each time
  EXPECT_EQ(ReadCycles(), 2);
  Run(Seconds(240));
  EXPECT_EQ(ReadCycles(), 3);
  EXPECT_EQ(Main().KeepAliveCount, 8);
  // The preference switches it off; a scripted run or a window that has the line holds it back.
  Shared().KeepAlive = false;
  ClearLog();
  Run(Seconds(500));
  EXPECT_EQ(Sent(), "");
  Shared().KeepAlive = true;
  Main().HoldPort();
  Shared().AskForRead();
  Run(Seconds(500));
  EXPECT_EQ(Sent(), "");
  Main().ReleasePort();
  Run(Seconds(10));
  EXPECT_EQ(ReadCycles(), 4);
}

TEST_F(ReadCycleTest, TheConnectTimeIsShownEachSecond) {
  Start();
  Run(Seconds(2));
  EXPECT_EQ(Text("pnl_ConnectTime"), "08:00:02 ");  // the time of day before the first connect
  ASSERT_TRUE(Connect());
  Run(Seconds(3600));
  EXPECT_THAT(Text("pnl_ConnectTime"), ::testing::MatchesRegex("01:00:0[0-9] "));
}

TEST_F(ReadCycleTest, ARequestDuringAReadBringsAnotherOne) {
  StartConnected();
  OnCommand("pwr", [&] { EXPECT_TRUE(Click("cmdReadRadio")); });
  ASSERT_TRUE(Refresh());
  EXPECT_TRUE(Shared().RefreshRequested);
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 3; }));
  Run(Seconds(5));
  EXPECT_EQ(ReadCycles(), 3);
}

// The probe programs the owner's name with what it holds: the one write that a connect makes.
TEST_F(ReadCycleTest, ANameThatCameOtherwiseTheSecondTimeIsNotSentBack) {
  Start();
  Radio().SetReply("own", "\r\nQuallmark SS\r\n");
  OnCommand("own", [&] { Radio().SetReply("own", "\r\nQuillmark SS\r\n"); });
  ASSERT_TRUE(Connect());
  EXPECT_THAT(SentCommands(), Not(Contains("deco")));
}

TEST_F(ReadCycleTest, TheLoginIsProbedOnceForEachConnect) {
  UseRadio({.Password = "abcd"});
  Start();
  ASSERT_TRUE(Connect());
  const auto commands = SentCommands();
  const auto at = std::find(commands.begin(), commands.end(), "deco");
  ASSERT_NE(at, commands.end());
  EXPECT_THAT(std::vector<std::string>(at - 1, at + 4),
              ElementsAre("own", "deco", "own Quillmark SS", "eeco", "owm"));
  EXPECT_TRUE(Enabled("tbr_Login"));
  EXPECT_FALSE(Enabled("tbr_Logout"));
  EXPECT_TRUE(Radio().Echo());
  EXPECT_THAT(Text("txtTerm"), Not(HasSubstr("own Quillmark SS")));
  ClearLog();
  ASSERT_TRUE(Refresh());
  EXPECT_THAT(SentCommands(), Not(Contains("deco")));
  ASSERT_TRUE(Click("tbr_Disconnect"));
  UseRadio({.Password = "abcd", .LoggedIn = true});
  ASSERT_TRUE(Connect());
  EXPECT_FALSE(Enabled("tbr_Login"));
  EXPECT_TRUE(Enabled("tbr_Logout"));
}

}  // namespace
}  // namespace quillmark
