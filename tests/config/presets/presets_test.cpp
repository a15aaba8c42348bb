#include <numeric>
#include <set>

#include "config/config_bench.h"
#include "config/presets/frmViewer.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string captionPrompt =
    "Enter a short name for the preset.\r\n\r\nThis will be displayed as the preset\r\nbutton "
    "caption.\r\n\r\n(Limit 12 Chars.)";
const std::string descriptionPrompt =
    "Enter a meaningful name for the preset.\r\n\r\nThis will be displayed when the mouse "
    "hovers\r\nover the preset buttons.";

class PresetsTest : public ConfigBench {
 public:
  std::filesystem::path Slot(int number) const {
    return DataFolder() / "Presets" / ("Preset" + std::to_string(number) + ".txt");
  }
  void Fill(int number, const std::string& caption, const std::string& description) {
    const std::string n = std::to_string(number);
    Write(Slot(number), "#PresetFile" + n + "\r\n#Name:" + description + "\r\n#PresetCaption:" +
                            caption + "\r\n#With Firmware Version:\r\nOWN #Name: " + n + "\r\n");
  }
  void SavePreset(const std::string& caption, const std::string& description) {
    ExpectInput(ProgramTitle).Saying(captionPrompt).Type(caption);
    ExpectInput(ProgramTitle).Saying(descriptionPrompt).Type(description);
    EXPECT_TRUE(Click("cmdSaveToPreset"));
  }
  // Caption, tool tip, tag, font size and whether it can be clicked.
  std::string Seen(int number) {
    const Button& button = Main().cmdPre[static_cast<std::size_t>(number - 1)];
    return button.Text() + "|" + button.ToolTip() + "|" + button.Tag() + "|" +
           std::to_string(static_cast<int>(button.FontSize())) +
           (button.Enabled() ? "|on" : "|off");
  }
  // The names in the folder, sorted, a blank behind each.
  std::string Entries() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(DataFolder() / "Presets")) {
      names.insert(entry.path().filename().string() + " ");
    }
    return std::accumulate(names.begin(), names.end(), std::string());
  }
  static constexpr const char* empty = "(Empty)||EMPTY|8|off";
};

TEST_F(PresetsTest, SavedShownAfterARestartAndProgrammed) {
  Fill(1, "One", "The first");
  Fill(3, "Three", "The third");
  StartConnected();
  Radio().Program("own", "Hill top");
  SavePreset("Hill", "The radio on the hill");
  EXPECT_THAT(FileText(Slot(2)), StartsWith("#PresetFile2\r\n#Name:The radio on the hill\r\n"
                                            "#PresetCaption:Hill\r\n#Created by"));
  EXPECT_THAT(FileText(Slot(2)), HasSubstr("\r\nOWN Hill top\r\n"));
  EXPECT_EQ(Seen(2), "Hill|The radio on the hill||9|on");
  ExpectIdle();
  ASSERT_TRUE(Quit());
  Restart();
  EXPECT_EQ(Seen(1), "One|The first||9|off");
  EXPECT_EQ(Seen(2), "Hill|The radio on the hill||9|off");
  EXPECT_EQ(Seen(4), empty);
  ASSERT_TRUE(Connect());
  Radio().Program("own", "Other");
  const std::string question = "Program connected radio using preset: The radio on the hill  ?";
  ExpectBox("Program from Preset").Saying(question).With(Buttons::YesNo).Reply(Answer::No);
  ClearLog();
  ASSERT_TRUE(Click("cmdPre_1"));
  ExpectWarned("This clears all settings of SN 00123456 first.");
  EXPECT_EQ(Sent(), "");
  ExpectBox("Program from Preset").Saying(question).Reply(Answer::Yes);
  ExpectInput("Check UNIT number.").Reply(Answer::Cancel);
  ASSERT_TRUE(Click("cmdPre_1"));
  std::vector<std::string> commands = SentCommands();
  ASSERT_GT(commands.size(), defaultSet.size());
  commands.resize(defaultSet.size());
  EXPECT_EQ(commands, defaultSet);
  EXPECT_EQ(Radio().Setting("own"), "Hill top");
  EXPECT_THAT(Text("txtTerm"), StartsWith("\r\n\r\n\r\n\r\n\r\nPROGRAMMING...."));
  ExpectIdle();
}

TEST_F(PresetsTest, TheQuestionsBeforeASave) {
  StartConnected();
  ASSERT_TRUE(Click("tbr_Disconnect") && Connect());
  ClearLog();
  // Nothing typed, thought better of; too long, thought better of; then cut.
  ExpectInput(ProgramTitle).Saying(captionPrompt).Type("");
  ExpectBox("Cancel Preset").Saying("Cancel Preset Saving ").Reply(Answer::No);
  ExpectInput(ProgramTitle).Saying(captionPrompt).Type("Thirteen chrs");
  ExpectBox("New Preset Name")
      .Saying("Pre-set button caption will be\r\n\r\ntruncated to: Thirteen chr")
      .With(Buttons::OkCancel)
      .Reply(Answer::Cancel);
  ExpectInput(ProgramTitle).Saying(captionPrompt).Type("Thirteen chrs");
  ExpectBox("New Preset Name").Reply(Answer::Ok);
  ExpectInput(ProgramTitle).Saying(descriptionPrompt).Type("");
  ExpectBox(ProgramTitle).Saying("Preset Save Cancelled");
  ASSERT_TRUE(Click("cmdSaveToPreset"));
  EXPECT_EQ(Sent(), "");
  EXPECT_TRUE(Shared().RefreshRequested);
  EXPECT_EQ(Seen(1), empty);
  ExpectInput(ProgramTitle).Saying(captionPrompt);
  ExpectBox("Cancel Preset").Reply(Answer::Yes);
  ASSERT_TRUE(Click("cmdSaveToPreset"));
  SavePreset("Twelve chars", "d");
  EXPECT_EQ(Seen(1), "Twelve chars|d||9|on");
}

TEST_F(PresetsTest, SixSlotsAndADeletedOneIsFilledAgain) {
  for (int number = 1; number <= 5; ++number) Fill(number, "P" + std::to_string(number), "d");
  StartConnected();
  SavePreset("P6", "d");
  EXPECT_FALSE(Enabled("cmdSaveToPreset"));
  ASSERT_TRUE(RightClick("cmdPre_2"));
  ExpectBox(ProgramTitle)
      .Saying("Delete Preset ?\r\n\r\nPreset Caption: P3\r\n\r\nDescription: d")
      .Reply(Answer::No);
  ASSERT_TRUE(Click("mnuPresetDelete"));
  ExpectWarned("The preset's file is deleted.");
  EXPECT_TRUE(Enabled("cmdSaveToPreset"));
  EXPECT_EQ(Seen(3), "P3|d||9|on");
  ExpectBox(ProgramTitle).Containing("P3").Reply(Answer::Yes);
  ASSERT_TRUE(Click("mnuPresetDelete"));
  EXPECT_EQ(Seen(3), empty);
  EXPECT_FALSE(std::filesystem::exists(Slot(3)));
  SavePreset("New", "new one");
  EXPECT_THAT(FileText(Slot(3)), StartsWith("#PresetFile3\r\n#Name:new one\r\n"));
  EXPECT_FALSE(Enabled("cmdSaveToPreset"));
}

TEST_F(PresetsTest, RenamedDescribedAndViewed) {
  Fill(2, "Old", "Old words");
  StartConnected();
  ASSERT_TRUE(RightClick("cmdPre_1"));
  ExpectInput("Rename Preset Button").Saying(captionPrompt).Offering("Old").Type("");
  ExpectBox("Cancel Preset").Reply(Answer::Yes);
  ASSERT_TRUE(Click("mnuPresetRename"));
  ExpectInput("Rename Preset Button").Offering("Old").Type("New");
  ASSERT_TRUE(Click("mnuPresetRename"));
  ExpectInput("Edit Preset Description")
      .Saying("Edit this presets long description below.")
      .Offering("Old words");
  ASSERT_TRUE(Click("mnuPresetEditDesc"));
  ExpectInput("Edit Preset Description").Type("New words");
  ASSERT_TRUE(Click("mnuPresetEditDesc"));
  EXPECT_EQ(Seen(2), "New|New words||9|on");
  const std::string text =
      "#PresetFile2\r\n#Name:New words\r\n#PresetCaption:New\r\n#With Firmware Version:\r\nOWN "
      "#Name: 2\r\n";
  EXPECT_EQ(FileText(Slot(2)), text);
  ExpectWindow("frmViewer").Do([&] {
    EXPECT_EQ(Text("frmViewer"), "New");
    EXPECT_EQ(Text("txtViewer"), text);
    EXPECT_TRUE(Click("cmdClose"));
  });
  ASSERT_TRUE(Click("mnuPresetView"));
}

// By the revision of the radio that it would go to.
TEST_F(PresetsTest, TheViewerTellsWhatTheRadioWillNotTake) {
  Write(Slot(1), "#PresetFile1\nPWR 45\nLPM 3\nCTS 1\nCTS x\nCTS 256\nCTS -1\nRXD 256\n");
  const auto view = [this](const std::string& problems, std::set<std::size_t> lines) {
    ExpectWindow("frmViewer").Do([&](Form& form) {
      const auto& viewer = static_cast<frmViewer&>(form);
      EXPECT_EQ(viewer.lblProblems.Visible() ? viewer.lblProblems.Text() : "", problems);
      std::set<std::size_t> marked;
      for (const auto& [line, remark] : viewer.txtViewer.Remarks()) marked.insert(line);
      EXPECT_EQ(marked, lines);
      EXPECT_TRUE(Click("cmdClose"));
    });
    ASSERT_TRUE(Main().cmdPre[0].RightClick());
    ASSERT_TRUE(Click("mnuPresetView"));
  };
  StartConnected({.Revision = "1.9.0"});
  view(
      "The radio will not take 6 lines:\r\nline 2: PWR 45, radios take 20 to 30 dBm\r\n"
      "line 3: LPM, radios from 3.2.0 on have it\r\nline 5: CTS x, radios take 0 to 255 ms\r\n"
      "line 6: CTS 256, radios take 0 to 255 ms\r\nand 2 more",
      {2, 3, 5, 6, 7, 8});
  Write(Slot(1), "#PresetFile1\nPWR 30 dBm\n");
  view("", {});
}

// What lies in the folder without being a preset of its own name changes no button.
TEST_F(PresetsTest, FilesMadeByHand) {
  Fill(1, std::string(500, 'c'), "long");
  Write(Slot(2), "#presetfile2\n#name:no caption\n");
  Write(Slot(3), "#PresetFile7\n#PresetCaption:seven\n");
  Write(Slot(4), "#PresetFile0\n#PresetCaption:nought\n");
  Write(Slot(5), "#PresetFile1\n#PresetCaption:first\n");
  Write(DataFolder() / "Presets" / "a..b.txt", "#PresetFile6\n#PresetCaption:..\n");
  Write(DataFolder() / "Presets" / "Empty.TXT", "");
  std::filesystem::create_directory(DataFolder() / "Presets" / "folder.txt");
  StartConnected();
  EXPECT_EQ(Seen(1), std::string(500, 'c') + "|long||9|on");
  EXPECT_EQ(Seen(2), "Preset 2|no caption||9|on");
  for (const int number : {3, 4, 5, 6}) EXPECT_EQ(Seen(number), empty) << number;
  // One that is no saved configuration: the radio is not even cleared.
  ExpectBox("Program from Preset").Reply(Answer::Yes);
  ExpectBox("File Error").Containing("does not appear").Reply(Answer::No);
  ClearLog();
  ASSERT_TRUE(Click("cmdPre_1"));
  EXPECT_EQ(Sent(), "");
}

TEST_F(PresetsTest, WhatFailsIsSaid) {
  StartConnected();
  Write(DataFolder() / "Presets", "no folder");
  ExpectBox("File I/O Error").Saying("Error Creating \\Presets directory.");
  SavePreset("a", "b");
  EXPECT_EQ(Seen(1), empty);
  ExpectIdle();
  std::filesystem::remove(DataFolder() / "Presets");
  // The temporary file can't be made.
  std::filesystem::create_directories(DataFolder() / "Presets" / "Preset1.tmp" / "x");
  ExpectBox("File I/O Error").Saying("Unspecified file I/O error.");
  SavePreset("a", "b");
  EXPECT_EQ(Seen(1), empty);
  ExpectIdle();
  // A radio that is gone: the preset holds what came until then, and can't be clicked.
  std::filesystem::remove_all(DataFolder() / "Presets");
  TolerateBoxes();
  Faults().HangUpAtCommand = Radio().CommandCount() + 8;
  SavePreset("a", "b");
  EXPECT_EQ(FileText(Slot(1)).substr(0, 41), "#PresetFile1\r\n#Name:b\r\n#PresetCaption:a\r\n");
  EXPECT_EQ(Seen(1), "a|b||9|off");
}

TEST_F(PresetsTest, TextsThatDoNotFitAreCutSoThatTheFileCanBeRead) {
  StartConnected();
  SavePreset("../a/b", std::string(3000, 'd'));
  ASSERT_TRUE(Quit());
  Restart();
  EXPECT_EQ(Seen(1), "../a/b|" + std::string(1018, 'd') + "||9|off");
}

// A disk that fills up in the middle leaves no half preset behind.
TEST_F(PresetsTest, APresetThatCannotBeWrittenWholeIsNone) {
  StartConnected();
  Write(Slot(1), "somebody's");
  // The radio's lines do not fit, or only the header that makes a preset of them does not.
  ExpectNotSaved(DataFolder() / "Presets" / "Preset1.tmp");
  ExpectBox("File I/O Error").Saying("Unspecified file I/O error.");
  for (const rlim_t most : {400U, 900U}) {
    const LimitedFiles limited(most);
    SavePreset("a", std::string(1000, 'b'));
    EXPECT_EQ(Entries(), "Preset1.txt ");
    EXPECT_EQ(Seen(1), empty);
  }
  EXPECT_EQ(FileText(Slot(1)), "somebody's");
}

TEST_F(PresetsTest, NothingHalfMadeStays) {
  // A program that was killed has left these, and somebody else the others.
  for (const char* name : {"Preset2.tmp", "Preset6.new", "Preset7.tmp", "mine.tmp"}) {
    Write(DataFolder() / "Presets" / name, "");
  }
  std::filesystem::create_directory(DataFolder() / "Presets" / "Preset3.tmp");
  const std::string others = "Preset3.tmp Preset7.tmp mine.tmp ";
  Write(Slot(1), "#PresetFile2\r\n");
  Start();
  EXPECT_EQ(Entries(), "Preset1.txt " + others);
}

TEST_F(PresetsTest, AFileOfAnotherSlotLocksNone) {
  for (int number = 1; number <= 6; ++number) Fill(number, "P", "d");
  Write(Slot(3), "#PresetFile4\n#PresetCaption:four\n");
  StartConnected();
  EXPECT_TRUE(Enabled("cmdSaveToPreset"));
  SavePreset("Saved", "over three");
  EXPECT_EQ(Seen(3), "Saved|over three||9|on");
  EXPECT_EQ(FileText(Slot(3).string() + ".bak"), "#PresetFile4\n#PresetCaption:four\n");
  EXPECT_FALSE(Enabled("cmdSaveToPreset"));
}

TEST_F(PresetsTest, DeletingWithoutALink) {
  Fill(1, "One", "d");
  StartConnected();
  ASSERT_TRUE(RightClick("cmdPre_0"));
  ExpectBox("Click Cancel to quit, OK to ignore.");
  ExpectBox(ProgramTitle)
      .Containing("One")
      .Do([this] { Unplug(); })
      .StaysUp(Seconds(1))
      .Reply(Answer::Yes);
  ASSERT_TRUE(Click("mnuPresetDelete"));
  Run(Seconds(1));
  EXPECT_EQ(Seen(1), empty);
  EXPECT_FALSE(Enabled("cmdSaveToPreset"));
}

}  // namespace
}  // namespace quillmark
