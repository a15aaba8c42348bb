#include "config/config_bench.h"

namespace quillmark {
namespace {

class ProgramPlanTest : public ConfigBench {
 public:
  void StartAsking(sim::SimRadioOptions options) {
    Store("Preferences", "PlanFirst", "True");
    StartConnected(std::move(options));
  }
};

// The radio has the factory's values but for three; the default set goes out before the file.
TEST_F(ProgramPlanTest, TheQuestionTellsWhatChangesAndNoSendsNothing) {
  StartAsking({.Revision = "2.0.0"});
  Radio().Program("pwr", "25");
  Radio().Program("baud", "9600 7E1");
  Radio().Program("xrssi", "-90");
  ASSERT_TRUE(Refresh());
  const std::string file =
      "#With Firmware Version:\r\nPWR 25\r\nPWR 45\r\nBAUD 9600\r\nDLINK 19200\r\nDLINK ON\r\n"
      "OWN North ridge\r\nLPM 3\r\nHOPTIME 28\r\nXMAP 0000000F\r\n";
  const auto expect = [this](Answer answer) {
    ExpectBox("What Will Change")
        .Saying(
            "3 settings of the radio change.\r\n21 stay as they are.\r\n"
            "3 have no value in the last read.\r\n"
            "2 lines set what this radio does not have in its mode and revision.\r\n"
            "1 line holds a value that radios do not take.\r\n\r\nProgram the radio?")
        .With(Buttons::YesNo)
        .Reply(answer);
  };
  ClearLog();
  expect(Answer::No);
  Program(file);
  EXPECT_EQ(Sent(), "");
  ExpectIdle();
  EXPECT_EQ(Boxes().back().Details,
            "This clears all settings of SN 00123456 first.\r\n\r\n"
            "Changes:\r\nOwner's Name: Quillmark SS becomes OWN North ridge\r\n"
            "Data Baud Rate: BAUD 9600 7E1 becomes BAUD 9600 8N1\r\n"
            "Extension RSSI: XRSSI -90 becomes XRSSI -120\r\n\r\n"
            "No value in the last read:\r\nCTSHOLD 0\r\nXADDR 0\r\nXMAP 0000000F\r\n\r\n"
            "Not in this radio:\r\nline 8: LPM, radios from 3.2.0 on have it\r\n"
            "line 9: HOPTIME, only a master takes it\r\n\r\n"
            "Not taken by radios:\r\nline 3: PWR 45, radios take 20 to 30 dBm");
  expect(Answer::Yes);
  Program(file);
  EXPECT_EQ(Radio().Setting("own"), "North ridge");
  EXPECT_EQ(Radio().Setting("xrssi"), "-120");
}

// The rows still show the radio before, whose revision and mode lack some of the settings.
TEST_F(ProgramPlanTest, ARadioThatWasNotReadYetHasNoValues) {
  StartAsking({.Revision = "2.0.0", .Mode = 'R'});
  ASSERT_TRUE(Click("tbr_Disconnect"));
  UseRadio({.Mode = 'M'});
  ASSERT_TRUE(Click("tbr_Connect"));
  ExpectBox("What Will Change")
      .Saying(
          "0 settings of the radio change.\r\n0 stay as they are.\r\n"
          "32 have no value in the last read.\r\n\r\nProgram the radio?")
      .Reply(Answer::No);
  Program("#With Firmware Version:\r\nMODE M\r\nHOPTIME 28\r\nLPM 3\r\n");
  EXPECT_TRUE(Boxes().back().Details.starts_with("This clears all settings of the radio first."));
}

TEST_F(ProgramPlanTest, APresetAsksTooAndAFlagThatCantBeReadAsks) {
  Store("Preferences", "PlanFirst", "perhaps");
  Write(DataFolder() / "Presets" / "Preset1.txt",
        "#PresetFile1\r\n#With Firmware Version:\r\nPWR 25\r\n");
  StartConnected();
  ClearLog();
  ExpectBox("Program from Preset").Reply(Answer::Yes);
  ExpectBox("What Will Change").Containing("1 setting of the radio changes.").Reply(Answer::No);
  ASSERT_TRUE(Click("cmdPre_0"));
  EXPECT_EQ(Sent(), "");
  ExpectIdle();
}

}  // namespace
}  // namespace quillmark
