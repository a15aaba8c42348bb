// What can go wrong while an image is sent, at every block of it. The line takes no time here, so
// that whole images are quick to send; the last test has it paced.

#include <functional>
#include <random>

#include "firmware/upgrade_bench.h"

namespace quillmark {
namespace {

constexpr std::int64_t block = 512;
constexpr std::int64_t blocks = 128;

class UpgradeFaultsTest : public UpgradeBench, private ControlView {
 public:
  void SetUp() override {
    image = sim::FirmwareImage("3.2.1", blocks * block);
    file = Save("new.s28", image);
  }

  // The number that the image's byte `at` (from 0) has among all that the radio receives, from 1,
  // if an upgrade starts now.
  std::int64_t NumberOf(std::int64_t at) {
    return Line().BytesToRadio() + static_cast<std::int64_t>(LoaderPrelude().size()) + 1 + at;
  }
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
  // The first byte from there on without which a record is none; line ends can do without one.
  std::int64_t RecordByte(std::int64_t at) const {
    while (image[static_cast<std::size_t>(at)] < ' ') ++at;
    return at;
  }

  std::string image;
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

TEST_F(UpgradeFaultsTest, ALostChangedOrDoubledByteInEveryBlock) {
  StartInLoader({.Paced = false});
  constexpr std::int64_t sim::LineFaults::*kinds[] = {&sim::LineFaults::DropToRadio,
                                                      &sim::LineFaults::GarbleToRadio,
                                                      &sim::LineFaults::DoubleToRadio};
  std::mt19937 random(1);
  for (std::int64_t at = 0; at < blocks; ++at) {
    // Half of them right at the boundary.
    const std::int64_t inside = at % 2 == 0 ? 0 : static_cast<std::int64_t>(random() % 400);
    SCOPED_TRACE(at * block + inside);
    Faults() = {};
    Faults().*kinds[at % 3] = NumberOf(RecordByte(at * block + inside));
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
      EXPECT_TRUE(Shared().TransferStop);
      EXPECT_FALSE(WindowOpen("frmProgram"));
    });
    const std::size_t before = Boxes().size();
    FailOnce();
    const std::int64_t sent = at == 0 ? 0 : (at + 1) * block;
    EXPECT_EQ(Radio().Transfer().Bytes, sent);
    EXPECT_EQ(Boxes()[before + 1].Details,
              "The transfer was cancelled after " + std::to_string(sent) + " of 65536 bytes.");
  }
  SucceedAtLast();
}

TEST_F(UpgradeFaultsTest, UnpluggedAtEveryBlock) {
  StartInLoader({.Paced = false});
  for (std::int64_t at = 0; at < blocks - 1; ++at) {
    SCOPED_TRACE(at);
    AtByte(at * block, [&] { Unplug(); });
    ExpectBox("Click Cancel to quit, OK to ignore.")
        .Saying("Unknown error or event")
        .Reply(at % 2 == 0 ? Answer::Ok : Answer::Cancel);
    ExpectBox(ProgramTitle).Saying("The port is not open").With(Icon::Exclamation);
    ExpectFailed();
    ExpectBox("Error").Containing("The selected COM port is not available.");
    Upgrade(file);
    EXPECT_EQ(Port().Settings(), "19200,N,8,1");
    EXPECT_FALSE(Enabled("mnuSendText"));
    EXPECT_FALSE(Enabled("tbr_TransmitTextFile"));
    EXPECT_TRUE(Enabled("tbr_Connect"));
    EXPECT_FALSE(WindowOpen("frmProgram"));
    EXPECT_EQ(Application().Ticks().LineHolders, 0);
    Plug();
    ExpectNeedsSoftware();
    ASSERT_TRUE(Click("tbr_Connect"));
    CheckExpectations();
    ExpectConnected();
  }
  SucceedAtLast();
}

TEST_F(UpgradeFaultsTest, CancelledWhileNothingLeaves) {
  StartInLoader();
  AtByte(4 * block, [&] {
    Port().HoldOutput(true);
    After(Seconds(1), [&] { EXPECT_TRUE(Click("Command1")); });
  });
  ExpectFailed().Do([&] { Port().HoldOutput(false); });
  ExpectNeedsSoftware();
  Upgrade(file);
  ExpectConnected();
}

// Whatever ends an upgrade, and whenever: the line is as before, and another one succeeds.
TEST_F(UpgradeFaultsTest, EndedAtAnyTime) {
  file = Image(16384);
  const struct {
    const char* Name;
    std::function<void()> Act;
  } acts[] = {
      {"cancelled", [&] { EXPECT_TRUE(!WindowOpen("frmProgram") || CloseWindow("frmProgram")); }},
      {"disconnected", [&] { Click("tbr_Disconnect"); }},
      {"unplugged", [&] { Unplug(); }},
      {"quit", [&] { EXPECT_TRUE(Quit()); }},
  };
  const struct {
    int Think;  // ms
    Duration Step, Takes;
  } radios[] = {{5, Milliseconds(510), Seconds(16)}, {400, Milliseconds(1730), Seconds(41)}};
  TolerateBoxes();
  Start();
  for (const auto& act : acts) {
    for (const auto& radio : radios) {
      for (Duration at = radio.Step; at < radio.Takes; at += radio.Step) {
        SCOPED_TRACE(act.Name + (" after " + std::to_string(at.count())));
        ConnectTo({.ThinkTime = Milliseconds(radio.Think)});
        After(at, act.Act);
        ExpectErase(Answer::Yes);
        Upgrade(file);
        // The loader would take a logout for a record.
        const auto sends = [this](const char* text) {
          return Sent().find(text) != std::string::npos;
        };
        EXPECT_TRUE(sends("EXIT\r") || !sends("PASS NONE"));
        if (Ended()) Restart();
        Run(Seconds(5));
        Plug();
        EXPECT_EQ(Port().Settings(), "19200,N,8,1");
        EXPECT_EQ(Enabled("mnuSendText"), Port().PortOpen());
        EXPECT_EQ(Enabled("tbr_TransmitTextFile"), Port().PortOpen());
        EXPECT_FALSE(WindowOpen("frmProgram"));
        EXPECT_EQ(Application().Ticks().LineHolders, 0);
        EXPECT_FALSE(Main().EchoIsOff);
        EXPECT_TRUE(Port().PortOpen() || Click("tbr_Connect"));
        Run(Seconds(30));
        const bool inLoader = Radio().At() == sim::Level::Loader;
        if (!inLoader && Radio().Setting("srev") == "3.2.0") ExpectErase(Answer::Yes);
        if (Radio().Setting("srev") != "3.2.1" || inLoader) Upgrade(file);
        EXPECT_EQ(Radio().Setting("srev"), "3.2.1");
        EXPECT_EQ(Radio().At(), sim::Level::Command);
        ASSERT_TRUE(Click("tbr_Disconnect"));
      }
    }
  }
}

// On a line with its own pace: one of each kind, and a radio that falls silent.
TEST_F(UpgradeFaultsTest, OnAPacedLine) {
  StartInLoader();
  Radio().SetLoaderFaults(33 * block, 0);
  ExpectFailed();
  Upgrade(file);
  // It is deaf for longer than the console wakes it.
  EXPECT_EQ(Text("txtTerm"), "Error. Please reconnect.");
  EXPECT_FALSE(Enabled("mnuSendText"));
  EXPECT_EQ(Port().Settings(), "19200,N,8,1");
  EXPECT_FALSE(Port().PortOpen());
  Run(Seconds(60));
  ExpectNeedsSoftware();
  ASSERT_TRUE(Click("tbr_Connect"));
  CheckExpectations();
  Radio().SetLoaderFaults(0, 0);
  AtByte(17 * block, [&] { EXPECT_TRUE(Click("Command1")); });
  FailOnce();
  // One block was on its way when the user saw the figure.
  EXPECT_LE(Radio().Transfer().Bytes, 18 * block);
  Faults().DropToRadio = NumberOf(RecordByte(9 * block + 100));
  FailOnce();
  Faults() = {};
  Faults().SilentFrom = Radio().CommandCount() + 3;
  ExpectFailed();
  Upgrade(file);
  EXPECT_EQ(Text("txtTerm"), "Error. Please reconnect.");
  // The image was sound; only nobody heard so.
  Faults() = {};
  ExpectNeedsSoftware();
  ASSERT_TRUE(Click("tbr_Connect"));
  CheckExpectations();
  SucceedAtLast();
}

}  // namespace
}  // namespace quillmark
