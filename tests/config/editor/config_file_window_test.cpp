#include "config/config_bench.h"
#include "config/config_lines.h"
#include "config/editor/frmConfigFile.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class ConfigFileWindowTest : public ConfigBench {
 public:
  // Opens a file of that text without a radio, does the acts, and gives the file's text then.
  std::string InFile(const std::string& text, std::function<void()> acts) {
    const auto file = Write(InScratch("edited.txt"), text);
    ExpectOpenFile("Open Configuration").Choose(file);
    ExpectWindow("frmConfigFile").Do(std::move(acts));
    EXPECT_TRUE(Click("mnuOpenConfig"));
    CheckExpectations();
    return FileText(file);
  }
  // Types values into the window's fields.
  void Enter(const std::vector<std::pair<std::string, std::string>>& values) {
    for (const auto& [name, value] : values) {
      EXPECT_TRUE(Edit("frmConfigFile." + name, value)) << name;
    }
  }
  void SaveAndClose() {
    EXPECT_TRUE(Click("frmConfigFile.tbr_Save"));
    EXPECT_TRUE(Click("frmConfigFile.CloseButton"));
  }
  std::string Marked() {
    std::string marked;
    for (const ConfigRow& row : Window().Rows) {
      if (!row.Value.Problem().empty()) marked += row.Value.Problem() + "\n";
    }
    return marked;
  }
  frmConfigFile& Window() {
    return dynamic_cast<frmConfigFile&>(Find("frmConfigFile.lblMarks").Owner());
  }
};

TEST_F(ConfigFileWindowTest, ASaveKeepsAllBytesThatWereNotEdited) {
  const std::string head = "#With Firmware Version:  77-1234A01 3.2.0\r\n\r\n";
  const struct {
    const char* About;
    std::string Before;
    std::vector<std::pair<std::string, std::string>> Values;
    std::string After;
  } cases[] = {
      {"The line that counts keeps its word and its place",
       head + "# PWR 20\r\npwr 20 dBm\r\nWOMBAT 7 \x01\r\nPWR 21 dBm\r\n#end",
       {{"PowerLevel", "30"}},
       head + "# PWR 20\r\npwr 20 dBm\r\nWOMBAT 7 \x01\r\nPWR 30\r\n#end"},
      {"A mark at the head, bare line ends, none at the end",
       "\xEF\xBB\xBFMODE R\n\nPWR 20\nOWN  two  blanks ",
       {{"OwnerName", " x "}, {"PowerLevel", "PWR 25"}},
       "\xEF\xBB\xBFMODE R\n\nPWR 25\nOWN  x "},
      {"What the file lacks stands where a save has it",
       "MODE R\rFEC ON\r#end\r",
       {{"PowerLevel", "25"}, {"UnitAddr", "12345"}, {"DTYPE", "ROOT"}},
       "UNIT 12345\rMODE R\rPWR 25\rFEC ON\rDTYPE ROOT\r#end\r"},
      {"Behind a last line without an end",
       "MODE R\nFEC ON",
       {{"DTYPE", "ROOT"}},
       "MODE R\nFEC ON\nDTYPE ROOT\n"},
      {"Both parts of a value of two",
       "DLINK 9600 \r\nDLINK OFF\r\nRTU 3\r\nRTU ON\r\n",
       {{"DLINK", "19200 (ON)"}, {"SoftRTU", "ON"}, {"BaudRate", "4800 8N1"}},
       "BAUD 4800 8N1\r\nDLINK 19200\r\nDLINK ON\r\nRTU ON\r\n"},
      {"The radio's own wording",
       "AMASK FFFF FFFF\r\nALARM ACTIVE: HI\r\n",
       {{"AlarmSense", "LO"}, {"AlarmMask", "0000 00FF"}},
       "AMASK 0000 00FF\r\nALARM ACTIVE: LO\r\n"},
      {"Nothing typed takes a setting out, all its lines",
       "PWR 20\r\nFEC ON\r\nPWR 21\r\n",
       {{"PowerLevel", ""}},
       "FEC ON\r\n"},
  };
  Start();
  for (const auto& each : cases) {
    SCOPED_TRACE(each.About);
    EXPECT_EQ(InFile(each.Before,
                     [&] {
                       Enter(each.Values);
                       SaveAndClose();
                     }),
              each.After);
  }
  // The value that the file had is no change, whatever was typed before it.
  EXPECT_EQ(InFile("PWR  20\r\n",
                   [&] {
                     Enter({{"PowerLevel", ""}, {"PowerLevel", "20"}});
                     EXPECT_FALSE(Enabled("frmConfigFile.tbr_Save"));
                     EXPECT_TRUE(CloseWindow("frmConfigFile"));
                   }),
            "PWR  20\r\n");
  EXPECT_EQ(Sent(), "");
}

// Each setting is typed into a file that has none of them.
TEST_F(ConfigFileWindowTest, WhatIsTypedIsWhatARadioHoldsAfterItWasProgrammed) {
  for (const std::string revision : {"1.9.0", "3.2.0"}) {
    SCOPED_TRACE(revision);
    sim::SimRadio sample({.Revision = revision, .Mode = 'M'});
    ProgramOddValues(sample);
    UseRadio({.Revision = revision, .Mode = 'R'});
    Start();
    const std::string file =
        InFile("#With Firmware Version:  77-1234A01 " + revision + "\r\n\r\nMODE M\r\n", [&] {
          for (const ConfigRow& row : Window().Rows) {
            const std::string value = sample.Setting(row.What.Word);
            if (row.Value.Visible() && row.What.Id != SettingId::Mode) {
              Enter({{row.What.Name, value}});
            }
          }
          EXPECT_EQ(Marked(), "");
          SaveAndClose();
        });
    ASSERT_TRUE(Connect());
    Program(file);
    EXPECT_EQ(HoldingsOf(Radio()), HoldingsOf(sample));
    EXPECT_EQ(Marks(), "");
    ASSERT_TRUE(Quit());
    Restart();
  }
}

TEST_F(ConfigFileWindowTest, MarksWhatRadiosOfTheFilesOwnModeAndRevisionDoNotTake) {
  Start();
  InFile("#With Firmware Version:  77-1234A01 1.9.0\r\nMODE R\r\nPWR 45\r\nDTYPE ROOT\r\n", [&] {
    EXPECT_EQ(Text("lblFirmware"), "Of a radio with firmware 1.9.0.");
    EXPECT_EQ(Marked(), "PWR 45: radios take 20 to 30 dBm\nDTYPE: radios from 2.0.0 on have it\n");
    EXPECT_EQ(Text("lblMarks"), "3 settings, 2 marked with ! (radios do not take them).");
    EXPECT_EQ(Text("PowerLevelHint"), "! radios take 20 to 30 dBm");
    Enter({{"PowerLevel", "25"}, {"DTYPE", ""}});
    EXPECT_EQ(Marked(), "");
    EXPECT_EQ(Text("lblMarks"), "2 settings, none marked.");
    EXPECT_EQ(Text("PowerLevelHint"), "20 to 30 dBm; factory 30");
    // Beside another file it is as it stands in the window.
    ExpectOpenFile("Compare With").Choose(Write(InScratch("o.txt"), "pwr 26 dBm\r\nMODE R\r\n"));
    ExpectWindow("frmComparison").Do([&] {
      EXPECT_EQ(Text("frmComparison.lblCounts"), "1 of 2 settings differs.");
      EXPECT_TRUE(Click("frmComparison.cmdClose"));
    });
    EXPECT_TRUE(Click("frmConfigFile.tbr_Compare"));
    ExpectBox("Configuration File").Containing("Save the changes").Reply(Answer::No);
    EXPECT_TRUE(Click("frmConfigFile.CloseButton"));
  });
  std::string lines;
  for (int i = 0; i < 102; ++i) lines += "PWR 20\r\n";
  InFile(lines, [&] {
    EXPECT_THAT(Text("lblMarks"), HasSubstr("102 lines: no radio can be programmed from more"));
    EXPECT_TRUE(Click("frmConfigFile.CloseButton"));
  });
}

TEST_F(ConfigFileWindowTest, AsksBeforeAnythingIsLost) {
  Start();
  const auto other = Write(InScratch("other.txt"), "MODE X\r\n");
  const std::string saved = InFile("MODE R\r\n", [&] {
    Enter({{"Mode", "M"}});
    EXPECT_THAT(Text("frmConfigFile"), StartsWith("edited.txt (changed) - "));
    ExpectBox("Configuration File").Reply(Answer::Cancel);
    EXPECT_TRUE(CloseWindow("frmConfigFile"));
    ASSERT_TRUE(WindowOpen("frmConfigFile"));
    // Another program has written it.
    Write(InScratch("edited.txt"), "MODE R\r\nPWR 20\r\n");
    ExpectBox("Configuration File").Containing("by another program").Reply(Answer::No);
    EXPECT_TRUE(Click("frmConfigFile.tbr_Save"));
    EXPECT_EQ(FileText(InScratch("edited.txt")), "MODE R\r\nPWR 20\r\n");
    ExpectSaveFile("Save Configuration As").Choose(other);
    ExpectBox("Configuration File").Containing("\"other.txt\" exists").Reply(Answer::No);
    EXPECT_TRUE(Click("frmConfigFile.tbr_SaveAs"));
    EXPECT_EQ(FileText(other), "MODE X\r\n");
    {
      ExpectNotSaved(InScratch("new.txt"));
      ExpectSaveFile("Save Configuration As").Choose(InScratch("new.txt"));
      const LimitedFiles limited(4);
      EXPECT_TRUE(Click("frmConfigFile.tbr_SaveAs"));
      EXPECT_FALSE(std::filesystem::exists(InScratch("new.txt")));
    }
    ExpectBox("Configuration File").Reply(Answer::Yes);
    ExpectBox("Configuration File").Containing("by another program").Reply(Answer::Yes);
    EXPECT_TRUE(Click("frmConfigFile.CloseButton"));
  });
  EXPECT_EQ(saved, "MODE M\r\n");
  EXPECT_EQ(Stored("Recent", "File1"), InScratch("edited.txt").string());
}

TEST_F(ConfigFileWindowTest, ASignalThatEndsTheProgramLosesNoChange) {
  Start();
  EXPECT_EQ(InFile("MODE R\r\n",
                   [&] {
                     Enter({{"Mode", "M"}});
                     Events().Deliver([&] { Application().Form_Unload(); });
                   }),
            "MODE R\r\n");
  Restart();
  ExpectWindow("frmConfigFile").Do([&] {
    EXPECT_THAT(Text("frmConfigFile.lblFile"), ::testing::EndsWith("Unsaved/edited.txt"));
    EXPECT_EQ(Text("frmConfigFile.Mode"), "M");
    EXPECT_TRUE(Click("frmConfigFile.CloseButton"));
  });
  EXPECT_TRUE(Click("FileDone"));
  Restart();
  EXPECT_FALSE(Visible("FileDone"));
}

TEST_F(ConfigFileWindowTest, OddFilesAreRefusedWithASentence) {
  Start();
  const struct {
    std::filesystem::path File;
    const char* Why;
  } cases[] = {
      {Write(InScratch("letter.txt"), "Dear radio,\r\n"), "holds no setting of a radio."},
      {Write(InScratch("empty.txt"), ""), "holds no setting of a radio."},
      {Write(InScratch("long.txt"), "PWR 20\r\n" + std::string(1025, 'x')), "more than 1024"},
      {Write(InScratch("lines.txt"), "PWR 20\r\n" + std::string(1001, '\n')), "more than 1000"},
      {ScratchFolder(), "is no plain file"},
      {InScratch("gone.txt"), "is no plain file"},
  };
  for (const auto& each : cases) {
    ExpectOpenFile("Open Configuration").Choose(each.File);
    ExpectBox("File Error").Containing(each.Why);
    EXPECT_TRUE(Click("mnuOpenConfig"));
  }
}

TEST_F(ConfigFileWindowTest, APresetIsMadeAndOpenedWithoutARadio) {
  Start();
  EXPECT_FALSE(Enabled("mnuOpenPreset"));
  const std::string header = "#PresetFile6\r\n#Name:old\r\n#PresetCaption:old\r\n";
  InFile(header + "MODE R\r\n", [&] {
    Enter({{"PowerLevel", "25"}});
    ExpectInput("Save As Preset").Type("7");
    ExpectInput("Save As Preset").Type("2");
    ExpectInput("Save As Preset").Type("North of the ridge");
    EXPECT_TRUE(Click("frmConfigFile.tbr_SavePreset"));
    EXPECT_EQ(Text("frmConfigFile.lblOutcome"), "Saved as preset 2.");
    ExpectBox("Configuration File").Reply(Answer::No);
    EXPECT_TRUE(Click("frmConfigFile.CloseButton"));
  });
  const auto file = DataFolder() / "Presets" / "Preset2.txt";
  const std::string preset =
      "#PresetFile2\r\n#Name:North of the ridge\r\n#PresetCaption:North of the\r\nMODE R\r\n";
  EXPECT_EQ(FileText(file), preset + "PWR 25\r\n");
  EXPECT_EQ(Text("cmdPre_1"), "North of the");
  EXPECT_FALSE(Enabled("cmdPre_1"));
  EXPECT_EQ(Text("mnuPresetFile_1"), "&2 North of the");
  ExpectWindow("frmConfigFile").Do([&] {
    Enter({{"PowerLevel", "26"}});
    SaveAndClose();
  });
  EXPECT_TRUE(Click("mnuPresetFile_1"));
  EXPECT_EQ(FileText(file), preset + "PWR 26\r\n");
}

}  // namespace
}  // namespace quillmark
