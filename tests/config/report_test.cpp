#include "config_bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class ReportTest : public ConfigBench {};

TEST_F(ReportTest, GoesToThePrinter) {
  StartConnected();
  const auto temp = DataFolder() / "Temp";
  const struct {
    const char *Serial, *File;
  } cases[] = {{"SN 00123456", "00123456.txt"},
               {"", "config.txt"},
               {"n/a", "config.txt"},
               {"SN ../../x\"/", "x.txt"},
               {"abcdefghij", "defghij.txt"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Serial);
    Main().SerialNumber.Text = each.Serial;
    ExpectPrinter(each.File).ChoosePrinter("Office").Do(
        [this] { EXPECT_EQ(Text("pnl_Status"), "Printing"); });
    ASSERT_TRUE(Click("cmdPrint"));
    const auto& printed = DesktopSeen().Prints.back();
    EXPECT_EQ(printed.Target.Printer, "Office");
    EXPECT_EQ(printed.File, temp / each.File);
    EXPECT_THAT(printed.Text, StartsWith("\r\n\r\n#Created by"));
    EXPECT_THAT(Text("txtTerm"), HasSubstr("\r\nPRINTING..."));
    ExpectIdle();
    ASSERT_TRUE(Refresh());
  }
  DesktopSeen().Prints.clear();
  ExpectPrinter("00123456.txt");  // cancelled
  ASSERT_TRUE(Click("cmdPrint"));
  EXPECT_TRUE(DesktopSeen().Prints.empty());
  Restart();
  EXPECT_TRUE(std::filesystem::is_empty(temp));
  // Only the program's own folder is emptied, not what a link in its place leads to.
  Write(InScratch("mine") / "letter.txt", "kept");
  std::filesystem::remove(temp);
  std::filesystem::create_directory_symlink(InScratch("mine"), temp);
  Restart();
  EXPECT_EQ(Contents(temp / "letter.txt"), "kept");
}

}  // namespace
}  // namespace quillmark
