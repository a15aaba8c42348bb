// The window of the radio history on the virtual bench: what it lists, what a search finds, and
// what each act does to the files.

#include "config/frmComparison.h"
#include "history/history_window_bench.h"
#include "restore/frmRestore.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
namespace fs = std::filesystem;

using HistoryWindowTest = HistoryWindowBench;

TEST_F(HistoryWindowTest, ListsRadiosAndTheirCopiesWithWhatChanged) {
  Open();
  EXPECT_THAT(Text("frmHistory.lblEmpty"), HasSubstr("There are no copies yet."));
  EXPECT_THAT(Text("frmHistory.lblEmpty"), ::testing::Not(HasSubstr("is off")));
  Shared().History = false;
  Keep("7", {"UNIT 12345", "OWN Hill top", "PWR 30 dBm", "MODE M", "DLINK 19200", "DLINK ON"});
  Keep("7",
       {"UNIT 12345", "OWN Hill top", "PWR 27 dBm", "MODE M", "DLINK 19200", "DLINK OFF",
        "XMAP 00000001", "ALARM ACTIVE: LO"},
       "before a preset");
  Keep("7", {"UNIT 1234", "OWN North ridge", "PWR 27 dBm", "MODE M", "DLINK 19200", "DLINK OFF",
             "ALARM ACTIVE: HI"});
  Keep("8", {"MODE R"});
  As<Form>("frmHistory").UserReturn();
  EXPECT_FALSE(Visible("frmHistory.lblEmpty"));
  EXPECT_EQ(Rows(Radios()), "7|1234|North ridge|2025-06-15 18:06:40|\n8|||2025-06-15 19:06:40|\n");
  EXPECT_EQ(Rows(Copies()),
            "2025-06-15 18:06:40|read|||UNIT 12345 to 1234; 2 more|\n"
            "2025-06-15 17:06:40|before a preset|||PWR 30 dBm to 27 dBm; 2 more|\n"
            "2025-06-15 16:06:40|read||||\n");
  EXPECT_EQ(Copies().Rows()[0].Tip,
            "UNIT 12345 to 1234\r\nOWN Hill top to North ridge\r\nASENSE LO to HI");
  EXPECT_EQ(Copies().Rows()[1].Tip,
            "PWR 30 dBm to 27 dBm\r\nASENSE (left out) to LO\r\nDLINK 19200 ON to 19200 OFF");
  EXPECT_EQ(
      Text("frmHistory.lblState"),
      "2 radios, 3 copies of 7.\rNo copies are kept now: \"Keep Copies Of Radio Settings\" is "
      "off. It is in the menu \"Special\", \"Application Preferences\".");
  EXPECT_TRUE(Radios().UserSelect({1}));
  EXPECT_EQ(Rows(Copies()), "2025-06-15 19:06:40|read||||\n");
  EXPECT_FALSE(Enabled("frmHistory.tbr_Compare"));
}

TEST_F(HistoryWindowTest, ASearchLooksAtAllOfAllCopiesInAnyCase) {
  for (int i = 0; i < 3; ++i)
    Keep("7", {"OWN M\xF6we " + std::to_string(i), "PWR 3" + std::to_string(i)});
  Keep("8", {"OWN M\xD6WE", "PWR 20"}, "before firmware 3.2.1");
  Keep("9", {"OWN Hill"});
  Open();
  const struct {
    const char *Words, *Found;  // folders, and copies of the chosen one
  } cases[] = {{"m\xD6we", "7 8 :3"}, {" pwr 20 ", "8 :1"}, {"FIRMWARE 3.2", "8 :1"},
               {"we 1", "7 :1"},      {"sn 9", "9 :1"},     {"2025-06-15 19", "8 :1"},
               {"nowhere", ":0"},     {"", "7 8 9 :3"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Words);
    ASSERT_TRUE(Edit("frmHistory.txtSearch", "") && Radios().UserSelect({0}));
    ASSERT_TRUE(Edit("frmHistory.txtSearch", each.Words));
    Run(Seconds(1));
    std::string found;
    for (const TableRow& row : Radios().Rows()) found += row.Cells[0] + " ";
    EXPECT_EQ(found + ":" + std::to_string(Copies().Rows().size()), each.Found);
  }
}

TEST_F(HistoryWindowTest, PinNameExportAndDeleteTouchTheirOwnFileAlone) {
  const fs::path first = Keep("7", {"PWR 30"});
  const fs::path second = Keep("7", {"PWR 27"});
  const fs::path third = Keep("7", {"PWR 21"});
  Open();
  auto before = Tree();
  const std::string text = before[second];
  Choose({second});
  ASSERT_TRUE(Click("frmHistory.tbr_Pin"));
  ExpectInput("Name Of The Copy")
      .Type(
          "  PWR ok, ^ b\xE4"
          "d weather ");
  ASSERT_TRUE(Click("frmHistory.tbr_Name"));
  EXPECT_EQ(Copies().Rows()[1].Cells[2],
            "PWR ok,  b\xE4"
            "d weather");
  EXPECT_EQ(Copies().Rows()[1].Mark, Sign::Pinned);
  EXPECT_EQ(ReadCopy(second).State, CopyState::Sound);
  EXPECT_THAT(FileText(second), HasSubstr("\r\n#Name: P^W^R ok,  b\xE4"
                                          "d weather\r\n#Pinned\r\n\r\n"));
  EXPECT_EQ(Copies().Selected(), std::vector<std::size_t>{1});
  Choose({first, second});
  ASSERT_TRUE(Click("frmHistory.tbr_Pin"));
  EXPECT_EQ(Text("frmHistory.tbr_Pin"), "Unpin");
  ASSERT_TRUE(Click("frmHistory.tbr_Pin"));
  Choose({second});
  ExpectInput("Name Of The Copy").Type(" ");
  ASSERT_TRUE(Click("frmHistory.tbr_Name"));
  EXPECT_EQ(Tree(), before);
  // Over a file that is there, behind a link.
  const fs::path to = Write(InScratch("out.txt"), "old");
  fs::create_symlink(to, InScratch("link.txt"));
  for (const bool yes : {false, true}) {
    ExpectSaveFile("Export").Choose(InScratch("link.txt"));
    ExpectBox("Export").Reply(yes ? Answer::Yes : Answer::No);
    ASSERT_TRUE(Click("frmHistory.tbr_Export"));
    EXPECT_EQ(FileText(to), yes ? text : "old");
  }
  EXPECT_TRUE(fs::is_symlink(InScratch("link.txt")));
  {
    const LimitedFiles full(100);
    ExpectSaveFile("Export").Choose(to);
    ExpectBox("Export").Reply(Answer::Yes);
    ExpectBox("Export").Containing("This could not be done.");
    ASSERT_TRUE(Click("frmHistory.tbr_Export"));
    ExpectBox("Pin").Containing("This could not be done.");
    ASSERT_TRUE(Click("frmHistory.tbr_Pin"));
  }
  EXPECT_EQ(FileText(to), text);
  EXPECT_EQ(Tree(), before);
  Choose({second});
  ASSERT_TRUE(Click("frmHistory.tbr_Pin"));
  before = Tree();
  ExpectBox("Delete").Containing("It is pinned.").Reply(Answer::No);
  ASSERT_TRUE(Click("frmHistory.tbr_Delete"));
  EXPECT_EQ(Tree(), before);
  Choose({second, third});
  ExpectBox("Delete")
      .Containing("Delete these 2 copies?\r\r1 of them are pinned.")
      .Reply(Answer::Yes);
  ASSERT_TRUE(Click("frmHistory.tbr_Delete"));
  before.erase(second);
  before.erase(third);
  EXPECT_EQ(Tree(), before);
  EXPECT_EQ(Rows(Copies()), "2025-06-15 16:06:40|read||||\n");
}

TEST_F(HistoryWindowTest, ACopyIsEditedWithoutARadioAndStaysAsItWas) {
  const fs::path copy = Keep("7", {"MODE R", "PWR 30"});
  Open();
  const auto before = Tree();
  ExpectWindow("frmConfigFile").Do([&] {
    EXPECT_FALSE(Enabled("frmConfigFile.tbr_Save"));
    EXPECT_TRUE(Edit("frmConfigFile.PowerLevel", "25"));
    ExpectSaveFile("Save Configuration As").Choose(copy);
    ExpectBox("Configuration File").Containing("Please choose another folder.");
    EXPECT_TRUE(Click("frmConfigFile.tbr_Save"));
    ExpectSaveFile("Save Configuration As").Choose(InScratch("mine.txt"));
    EXPECT_TRUE(Click("frmConfigFile.tbr_Save"));
    EXPECT_TRUE(Click("frmConfigFile.CloseButton"));
  });
  ASSERT_TRUE(Click("frmHistory.tbr_Open"));
  EXPECT_EQ(Tree(), before);
  EXPECT_THAT(FileText(InScratch("mine.txt")), HasSubstr("\r\nMODE R\r\nPWR 25\r\n"));
}

TEST_F(HistoryWindowTest, ComparesCopiesAndTheRadioAndOpensOneForRestoring) {
  StartConnected({.Mode = 'M'});
  Open();
  ASSERT_EQ(Radios().Rows().size(), 1U);
  // What is kept while the window is open comes in by itself.
  Radio().Program("pwr", "27");
  ASSERT_TRUE(Refresh());
  Radio().Program("pwr", "21");
  ASSERT_TRUE(Refresh());
  Run(Seconds(1));
  ASSERT_EQ(Copies().Rows().size(), 3U);
  const auto when = [this](std::size_t row) { return Copies().Rows()[row].Cells[0] + ", read"; };
  ASSERT_TRUE(Copies().UserSelect({2}) && Click("frmHistory.tbr_CompareRadio"));
  EXPECT_EQ(Comparison(), when(2) +
                              " / SN 00123456, as it was read last\n"
                              "Power Level|PWR 30 dBm|PWR 21 dBm|\n");
  EXPECT_FALSE(Click("frmHistory.tbr_Compare"));
  ASSERT_TRUE(Copies().UserSelect({1}) && Copies().UserOpen());
  EXPECT_EQ(Comparison(), when(2) + " / " + when(1) + "\nPower Level|PWR 30 dBm|PWR 27 dBm|\n");
  ASSERT_TRUE(Copies().UserSelect({2, 0}) && Click("frmHistory.tbr_Compare"));
  EXPECT_EQ(Comparison(), when(2) + " / " + when(0) + "\nPower Level|PWR 30 dBm|PWR 21 dBm|\n");
  ASSERT_TRUE(Copies().UserSelect({2}));
  ExpectWindow("frmRestore").Do([this](Form& form) {
    auto& window = dynamic_cast<frmRestore&>(form);
    ASSERT_TRUE(RunUntil([&] { return window.ReadIdle && Text("NewPowerLevel") == "PWR 30 dBm"; },
                         Seconds(90)));
    EXPECT_FALSE(Checked("PowerCheck"));
    ASSERT_TRUE(Click("CloseButton"));
    ASSERT_TRUE(RunUntil([&] { return !window.Loaded(); }, Seconds(90)));
  });
  ASSERT_TRUE(Click("frmHistory.tbr_Restore"));
  ASSERT_TRUE(Click("tbr_Disconnect"));
  ExpectBox("Radio History").Containing("when a radio is connected");
  ASSERT_TRUE(Click("frmHistory.tbr_Restore"));
  ExpectBox("Comparison").Containing("when a radio is connected");
  ASSERT_TRUE(Click("frmHistory.tbr_CompareRadio"));
  // Another console has removed what is shown.
  fs::remove_all(Folder());
  ExpectBox("Comparison").Containing("This copy is gone");
  ASSERT_TRUE(Copies().UserSelect({1}) && Click("frmHistory.tbr_Compare"));
  As<Form>("frmHistory").UserReturn();
  EXPECT_TRUE(Copies().Rows().empty() && Visible("frmHistory.lblEmpty"));
}

}  // namespace
}  // namespace quillmark
