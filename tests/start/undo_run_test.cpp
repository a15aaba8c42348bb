#include "config/config_bench.h"
#include "restore/frmRestore.h"

namespace quillmark {
namespace {

class UndoRunTest : public ConfigBench {
 public:
  UndoRunTest() { Store("Preferences", "History", "True"); }

  // Restores by a click on `control` all that can be restored in one run.
  void Undo(const std::string& control) {
    ExpectWindow("frmRestore").Do([this](Form& form) {
      auto& window = dynamic_cast<frmRestore&>(form);
      const auto idle = [&] { return window.ReadIdle && !window.Timer1.Enabled(); };
      ASSERT_TRUE(RunUntil([&] { return idle() && window.FileLoaded; }, Seconds(90)));
      Run(Seconds(10));
      ASSERT_TRUE(Click("tbr_ProgramRadio") && RunUntil(idle, Seconds(90)));
      ASSERT_TRUE(Click("CloseButton"));
      ASSERT_TRUE(RunUntil([&] { return !window.Loaded(); }, Seconds(90)));
    });
    ASSERT_TRUE(Click(control));
    CheckExpectations();
    const int before = ReadCycles();
    ASSERT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
  }
};

TEST_F(UndoRunTest, TheLastRunIsUndoneAndThatTooWithAllRowsThatDiffer) {
  UseRadio({.Mode = 'M'});
  ProgramOddValues(Radio());
  Start();
  ASSERT_TRUE(Connect());
  const Holdings before = HoldingsOf(Radio());
  EXPECT_FALSE(Enabled("mnuRestoreBefore"));
  // As a remote with the factory's values.
  ExpectBox("REMOTE").Reply(Answer::Yes);
  ASSERT_TRUE(Click("cmdRemote"));
  EXPECT_FALSE(Visible("CopyBefore"));
  const int cycles = ReadCycles();
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() > cycles; }));
  EXPECT_EQ(Text("CopyBefore"),
            "What the radio held before the last run can be restored. Click here.");
  const Holdings after = HoldingsOf(Radio());
  Undo("CopyBefore");
  // Three are not a remote's: they come with a second run. A master does not tell the fourth.
  Holdings restored = HoldingsOf(Radio());
  for (const char* word : {"csaddr", "lpm", "xaddr", "sleep"}) restored[word] = before.at(word);
  EXPECT_EQ(restored, before);
  EXPECT_TRUE(Visible("CopyBefore"));
  Undo("mnuRestoreBefore");
  EXPECT_EQ(Radio().Setting("pwr"), after.at("pwr"));
  EXPECT_EQ(Radio().Setting("mode"), after.at("mode"));
}

TEST_F(UndoRunTest, AnotherRadioIsAskedForAndWithoutALinkThereIsNothingToRestore) {
  StartConnected();
  Program("PWR 21\r\n#With Firmware Version:\r\n");
  UseRadio({.SerialNumber = "00999999"});
  ASSERT_TRUE(Click("tbr_Disconnect"));
  ExpectBox("Restore What Was There").Containing("when a radio is connected");
  ASSERT_TRUE(Click("mnuRestoreBefore"));
  ASSERT_TRUE(Connect());
  ExpectBox("Restore What Was There").Containing("SN 00123456").Reply(Answer::No);
  ClearLog();
  ASSERT_TRUE(Click("mnuRestoreBefore"));
  EXPECT_EQ(Sent(), "");
}

}  // namespace
}  // namespace quillmark
