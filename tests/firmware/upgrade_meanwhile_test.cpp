// What the user can do while an upgrade is under way.

#include "firmware/upgrade_bench.h"

namespace quillmark {
namespace {

using testing::HasSubstr;

using UpgradeMeanwhileTest = UpgradeBench;

TEST_F(UpgradeMeanwhileTest, WhatTheUserDoesMeanwhile) {
  StartInLoader();
  ASSERT_TRUE(Click("ButtonAdv"));
  const auto file = Image(16384);
  // Nothing gets into the records, and no dialog holds them up.
  WhileSending([&] {
    Port().Raise(comm::FramingError);
    Type("txtTerm", "x");
    for (const char* name :
         {"Mode", "mnuOpen", "mnuPreferences", "mnuAbout", "ButtonAdv", "tbr_Properties",
          "tbr_Login", "mnuSendText", "mnuConfigRestore", "ButtonZoneData"}) {
      EXPECT_FALSE(Find(name).Reachable()) << name;
    }
  });
  ExpectSuccess();
  Upgrade(file);
  ExpectConnected();
  EXPECT_TRUE(Find("Mode").Reachable() && Find("mnuOpen").Reachable());
  // The way out stays.
  ASSERT_TRUE(Click("tbr_Disconnect"));
  StartInLoader();
  WhileSending([&] { EXPECT_TRUE(Click("tbr_Disconnect")); });
  ExpectBox(ProgramTitle).Saying("The port is not open").With(Icon::Exclamation);
  ExpectBox("Radio Error").Saying("Radio programming FAILED.").With(Icon::Exclamation);
  ExpectNeedsSoftware();
  Upgrade(file);
  ExpectConnected();
}

// A read that runs behind the questions finds out what works on this radio; not yet.
TEST_F(UpgradeMeanwhileTest, AReadBehindTheQuestionsSwitchesNothingOn) {
  Start();
  OnCommand("OPEN", [&] { After(Milliseconds(300), [&] { EXPECT_TRUE(Click("mnuSendText")); }); });
  ExpectOpenFile(DialogTitle).StaysUp(Seconds(20)).Choose(Image());
  ExpectErase(Answer::Yes);
  ExpectSuccess();
  const auto expectHeld = [&] {
    EXPECT_EQ(Text("Mode"), "MODE R");
    for (const char* name : {"tbr_Login", "tbr_Logout", "ButtonZoneData", "ButtonRSSI"}) {
      EXPECT_FALSE(Find(name).Reachable()) << name;
    }
  };
  OnCommand("YES", [&] { After(Seconds(4), expectHeld); });
  WhileSending(expectHeld);
  ASSERT_TRUE(Click("tbr_Connect"));
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }, Seconds(120)));
  ExpectConnected();
  EXPECT_TRUE(Find("ButtonZoneData").Reachable() && Find("tbr_Logout").Reachable());
}

TEST_F(UpgradeMeanwhileTest, ClickedInTheMiddleOfSomethingElse) {
  // Slow, so that there is time for a click before the connect has ended.
  UseRadio({.ThinkTime = Milliseconds(500), .Overlaps = true});
  Start();
  for (const char* command : {"mode", "OPEN"}) {
    SCOPED_TRACE(command);
    ExpectErase(Answer::Yes);
    ExpectSuccess();
    ExpectChoice(Image());
    OnCommand(command, [&] { After(Milliseconds(1), [&] { EXPECT_TRUE(Click("mnuSendText")); }); });
    ASSERT_TRUE(Click("tbr_Connect"));
    ASSERT_TRUE(RunUntil([&] { return Radio().Setting("srev") == "3.2.1"; }, Seconds(300)));
    Run(Seconds(60));
    CheckExpectations();
    ExpectConnected();
    ASSERT_TRUE(Click("tbr_Disconnect"));
    UseRadio({.ThinkTime = Milliseconds(500), .Overlaps = true});
    Shared().InstalledFirmwareVersion = "";
  }
}

}  // namespace
}  // namespace quillmark
