// What can go wrong while an image is sent, at every block of it, and what the user can do
// meanwhile. The line takes no time here, so that whole images are quick to send.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>

#include "firmware/upgrade_bench.h"

namespace quillmark {
namespace {

constexpr std::int64_t block = 512;
constexpr std::int64_t blocks = 128;

class UpgradeFaultsTest : public UpgradeBench, private ControlView {
 public:
  void SetUp() override { file = Image(blocks * block); }

  // In the upgrade that comes: as soon as that many bytes have been sent.
  void AtByte(std::int64_t sent, std::function<void()> act) {
    if (sent == 0) return OnCommand("PROGRAM", std::move(act));
    awaited = std::to_string(sent) + " of";
    whenSent = std::move(act);
    OnCommand("PROGRAM", [this] { Find("lblLeft").SetView(this); });
  }
  // An upgrade that fails and leaves the radio in its loader.
  void FailOnce() {
    ExpectFailed();
    ExpectNeedsSoftware();
    Upgrade(file);
    ExpectConnected();
    EXPECT_FALSE(Radio().Transfer().Sound);
    ClearLog();
  }
  void SucceedAtLast() {
    Faults() = {};
    Radio().SetLoaderFaults(0, 0);
    ExpectSuccess();
    Upgrade(file);
    ExpectConnected();
    EXPECT_TRUE(Radio().Transfer().Sound);
    const int before = ReadCycles();
    ASSERT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
    EXPECT_EQ(Text("SoftwareRev"), "77-1234A01\r\n3.2.1  01Jan2009");
  }

  std::filesystem::path file;

 private:
  void Changed(Control& label) override {
    if (!static_cast<Label&>(label).Text().starts_with(awaited)) return;
    awaited = "none";
    Events().Post(whenSent);
  }

  std::string awaited;
  std::function<void()> whenSent;
};

TEST_F(UpgradeFaultsTest, AStalledOrResetLoaderAtEveryBlock) {
  StartInLoader({.Paced = false, .Loader = {.StallTime = Seconds(10)}});
  for (std::int64_t at = 1; at < blocks; ++at) {
    SCOPED_TRACE(at);
    const std::int64_t byte = at * block;
    Radio().SetLoaderFaults(at % 4 == 0 ? 0 : byte, at % 4 == 0 ? byte : 0);
    FailOnce();
  }
  SucceedAtLast();
}

TEST_F(UpgradeFaultsTest, CancelledAtEveryBlock) {
  StartInLoader({.Paced = false});
  // With the last block the image is whole.
  for (std::int64_t at = 0; at < blocks - 1; ++at) {
    SCOPED_TRACE(at);
    AtByte(at * block, [&] {
      EXPECT_TRUE(at % 2 == 0 ? Click("Command1") : CloseWindow("frmProgram"));
      EXPECT_FALSE(Shared().TransferStop);
      EXPECT_TRUE(Click("cmdYes"));
      EXPECT_TRUE(Shared().TransferStop);
      EXPECT_FALSE(WindowOpen("frmProgram"));
    });
    const std::size_t before = Boxes().size();
    FailOnce();
    const std::int64_t sent = at == 0 ? 0 : (at + 1) * block;
    EXPECT_EQ(Radio().Transfer().Bytes, sent);
    EXPECT_EQ(Boxes()[before + 1].Details,
              "The transfer was cancelled after " + std::to_string(sent) +
                  " of 65536 bytes. The radio answered: SEND S-RECORDS");
  }
  SucceedAtLast();
}

TEST_F(UpgradeFaultsTest, CancelledWhileNothingLeaves) {
  StartInLoader();
  AtByte(4 * block, [&] {
    Port().HoldOutput(true);
    After(Seconds(1), [&] { EXPECT_TRUE(Click("Command1") && Click("cmdYes")); });
  });
  ExpectFailed().Do([&] { Port().HoldOutput(false); });
  ExpectNeedsSoftware();
  Upgrade(file);
  ExpectConnected();
}

// The transfer goes on behind the question, and the answer may come too late to count.
TEST_F(UpgradeFaultsTest, ACancelIsAskedAboutWhileTheTransferGoesOn) {
  const auto asked = [&] { return std::pair(Visible("cmdYes"), Visible("Command1")); };
  StartInLoader();
  file = Image(16384);
  WhileSending([&] {
    EXPECT_EQ(asked(), std::pair(false, true));
    EXPECT_TRUE(Click("Command1"));
    EXPECT_EQ(asked(), std::pair(true, false));
    EXPECT_TRUE(CloseWindow("frmProgram"));  // asks nothing new
    EXPECT_EQ(As<Form>("frmProgram").Focus(), &Find("cmdNo"));
    After(Milliseconds(500), [&] {
      EXPECT_TRUE(Click("cmdNo"));
      EXPECT_EQ(asked(), std::pair(false, true));
      EXPECT_TRUE(Click("Command1"));
    });
  });
  ExpectSuccess().Do([&] { EXPECT_FALSE(WindowOpen("frmProgram")); });
  Upgrade(file);
  const std::string told = std::to_string(sim::FirmwareImage("3.2.1", 16384).size()) +
                           " bytes were sent, in 32 blocks. The radio answered: PROGRAMMED OK";
  EXPECT_EQ(Boxes().back().Details, told);
  EXPECT_THAT(Text("txtTerm"), testing::HasSubstr("Radio programming was successful. " + told));
  ExpectConnected();
}

TEST_F(UpgradeFaultsTest, ARefreshInTheLoaderSaysSo) {
  StartInLoader();
  EXPECT_EQ(Boxes().back().Details, "In the toolbar it is the button \"Transmit Text File...\".");
  ASSERT_TRUE(Click("ButtonRefresh"));
  Run(Seconds(6));
  EXPECT_THAT(Text("txtTerm"),
              testing::HasSubstr("\r\nThe radio is in its loader and has no settings to read. "
                                 "Load firmware with \"Transmit Text File...\" in the toolbar."));
  EXPECT_EQ(Text("pnl_Status"), "Status: The radio is in its loader.");
}

// What the user does while an upgrade is under way.
TEST_F(UpgradeFaultsTest, WhatTheUserDoesMeanwhile) {
  StartInLoader();
  ASSERT_TRUE(Click("ButtonAdv"));
  file = Image(16384);
  // Nothing gets into the records, and no dialog holds them up.
  WhileSending([&] {
    Port().Raise(comm::FramingError);
    Type("txtTerm", "x");
    Main().NextKeepAlive = Now();
    // The main window comes to the front; this one is shown anew.
    As<Form>("frmProgram").AlwaysOnTop = false;
    EXPECT_TRUE(Click("ButtonRefresh"));
    EXPECT_TRUE(As<Form>("frmProgram").AlwaysOnTop());
    for (const char* name :
         {"Mode", "mnuOpen", "mnuPreferences", "mnuAbout", "ButtonAdv", "tbr_Properties",
          "tbr_Login", "mnuSendText", "mnuConfigRestore", "ButtonZoneData"}) {
      EXPECT_FALSE(Find(name).Reachable()) << name;
    }
  });
  ExpectSuccess().StaysUp(Seconds(600));
  Upgrade(file);
  EXPECT_THAT(Sent(), testing::StartsWith(LoaderPrelude() + sim::FirmwareImage("3.2.1", 16384) +
                                          "EXIT\rCLOS\r"));
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
TEST_F(UpgradeFaultsTest, AReadBehindTheQuestionsSwitchesNothingOn) {
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

TEST_F(UpgradeFaultsTest, ClickedInTheMiddleOfSomethingElse) {
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
