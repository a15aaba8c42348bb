// A setting that no radio has, added to the catalogue as docs/add-a-setting.md tells it: it is
// found in every window, box and file.

#include "catalogue/settings.h"
#include "restore/restore_bench.h"

namespace quillmark {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

const Setting squelch{
    .Id = static_cast<SettingId>(PlaceOf(SettingId::DiagOptions) + 1),
    .Name = "Squelch",
    .Word = "sql",
    .Reply = "SQL",
    .Revisions = from300,
    .Value = {.Least = 0, .Most = 9, .Unit = "dB", .Factory = "3"},
    .View =
        {
            .Label = "SquelchLabel",
            .Caption = "Squelch",
            .Tip = "Click to program the squelch",
            .On = Tab::Radio2,
            .Top = 2520,
            .Clicked = Modes::Master,
        },
    .Read = SettingRead{.Refusal = "SELECTED OPTION"},
    .Input =
        SettingInput{
            .Title = "Program Squelch",
            .Prompt = "Enter the squelch (0-9 dB):",
            .Strips = "SQL ",
            .At = Modes::Master,
        },
    .Saved = SettingSaved{.MasterOnly = true},
    .Restored =
        SettingRestored{
            .Check = "SquelchCheck",
            .Caption = "Restore Squelch",
            .Follows = RestoreFollows::MasterAndTick,
            .SavedAtMasterOnly = true,
        },
    .Manual = SettingManual{.Title = "Squelch", .Text = "Mutes what is too weak."},
};

class MadeUpSetting : public RestoreBench {
 public:
  MadeUpSetting() {
    settings.push_back(squelch);
    UseSettings(settings);
  }
  // Connects a radio that answers so.
  void StartWith(sim::SimRadioOptions options, const std::string& reply) {
    UseRadio(std::move(options));
    Radio().SetReply("sql", "\r\n" + reply + "\r\n");
    WindowOpen("frmOrvalent") ? Restart() : Start();
    ClearLog();
    ASSERT_TRUE(Connect());
  }

  std::vector<Setting> settings{AllSettings().begin(), AllSettings().end()};
};

TEST_F(MadeUpSetting, IsReadGatedProgrammedAndExplained) {
  StartWith({.Mode = 'M'}, "SQL 4 dB");
  EXPECT_EQ(SentCommands().back(), "sql");
  EXPECT_EQ(Text("Squelch"), "SQL 4 dB");
  EXPECT_EQ(Find("Squelch").Container()->Name(), "NetSet_1");
  EXPECT_EQ(Top("SquelchLabel"), 2520);
  ASSERT_TRUE(Click("ButtonAdv"));
  ExpectBox("Squelch").Saying("Mutes what is too weak.");
  EXPECT_TRUE(Click("SquelchLabel"));
  ClearLog();
  ExpectInput("Program Squelch").Saying("Enter the squelch (0-9 dB):").Type("SQL 7 dB");
  EXPECT_TRUE(Click("Squelch"));
  EXPECT_EQ(Sent(), "sql 7 dB\r");

  StartWith({.Mode = 'R'}, "NOT A SELECTED OPTION");
  EXPECT_EQ(Text("Squelch"), "NOT AVAILABLE");
  EXPECT_FALSE(Enabled("Squelch"));
  StartWith({.Revision = "2.9.0", .Mode = 'M'}, "SQL 4 dB");
  EXPECT_THAT(SentCommands(), Not(Contains("sql")));
  EXPECT_FALSE(Visible("Squelch"));
}

TEST_F(MadeUpSetting, IsSavedPrintedAndRestored) {
  StartWith({.Mode = 'M'}, "SQL 4 dB");
  ExpectSaveFile("Radio Configuration Save").Choose(InScratch("main.txt"));
  ASSERT_TRUE(Click("cmdSaveToFile"));
  EXPECT_THAT(FileText(InScratch("main.txt")), HasSubstr("\r\nSQL 4 dB\r\n"));
  ASSERT_TRUE(Refresh());
  ExpectPrinter("00123456.txt").ChoosePrinter("Office");
  ASSERT_TRUE(Click("cmdPrint"));
  EXPECT_THAT(DesktopSeen().Prints.back().Text, HasSubstr("\r\nSQL 4 dB\r\n"));
  ASSERT_TRUE(Refresh());
  InWindow([&] {
    EXPECT_EQ(Text("Squelch"), "SQL 4 dB");
    EXPECT_EQ(Find("SquelchCheck").Container()->Name(), "RadSet_2");
    EXPECT_THAT(Save(), HasSubstr("\r\nSQL 4 dB\r\n"));
    LoadText("SQL 2 dB\r\n");
    EXPECT_EQ(Text("NewSquelch"), "SQL 2 dB");
    EXPECT_EQ(EnabledBoxes(), "sql");
    ASSERT_TRUE(Click("CheckAllButton"));
    ClearLog();
    ASSERT_TRUE(Click("tbr_ProgramRadio"));
    EXPECT_EQ(Sent(), "\rSQL 2 dB\r");
    EXPECT_TRUE(WaitForRead());
  });
  EXPECT_EQ(FactoryLines(squelch), std::vector<std::string>{"SQL 3"});
}

}  // namespace
}  // namespace quillmark
