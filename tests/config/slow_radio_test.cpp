#include "config/config_bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;

// Radios that need their time for each line, one line after the other, are read, saved and
// programmed like quick ones.
class SlowRadioTest : public ConfigBench {
 public:
  std::map<std::string, std::string> Rows() {
    std::map<std::string, std::string> rows;
    for (Control* control : Main().Controls()) {
      if (auto* row = dynamic_cast<SettingRow*>(control)) rows[row->Name()] = row->Text();
    }
    return rows;
  }
};

TEST_F(SlowRadioTest, ConnectReadSaveAndProgram) {
  enum class Way { Default, EchoesInTurn, ActsLate };
  std::map<std::string, std::string> rows;
  std::string file;
  bool first = true;
  for (const int ms : {5, 50, 100, 200, 400}) {
    for (const Way way : {Way::Default, Way::EchoesInTurn, Way::ActsLate}) {
      SCOPED_TRACE(testing::Message() << ms << " ms, way " << static_cast<int>(way));
      UseRadio({.Mode = 'M',
                .ThinkTime = Milliseconds(ms),
                .EchoesInTurn = way == Way::EchoesInTurn,
                .ActsLate = way == Way::ActsLate});
      ProgramOddValues(Radio());
      first ? Start() : Restart();
      ASSERT_TRUE(Connect(Seconds(200)));
      const std::string saved = Save();
      std::filesystem::remove(InScratch("saved.txt"));
      ASSERT_TRUE(Refresh());
      if (first) {
        rows = Rows();
        file = saved;
        EXPECT_THAT(file, HasSubstr("\r\nDiagnostics"));
      }
      first = false;
      EXPECT_EQ(Rows(), rows);
      EXPECT_EQ(saved, file);
      ClearLog();
      Program("With Firmware Version:\r\nPWR 22\r\nOWN Mast 4\r\nMODE M\r\n");
      ASSERT_TRUE(Refresh());
      EXPECT_EQ(Radio().Setting("pwr"), "22 dBm");
      EXPECT_EQ(Text("OwnerName"), "Mast 4");
      EXPECT_EQ(Text("Mode"), "MODE M");
      EXPECT_FALSE(Main().EchoIsOff);
      ASSERT_TRUE(Quit());
    }
  }
}

}  // namespace
}  // namespace quillmark
