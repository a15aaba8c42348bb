#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include "window_bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string canary = "Zq7#";

// A secret that a radio echoes against its orders stands nowhere: not in the terminal, not in the
// log, in no box, in no row and in no stored preference.
class SecretsTest : public WindowBench {
 public:
  void StartLogged(sim::SimRadioOptions options) {
    TolerateBoxes();
    StartConnected(std::move(options));
    log = ScratchFolder() / "session.log";
    ExpectSaveFile("Open a Communications Log File").Choose(log);
    ExpectBox("Open a Communications Log File").Reply(Answer::Yes);
    ASSERT_TRUE(Click("mnuOpenLog"));
  }
  // The radio's echo comes back on behind the program's back.
  void EchoAgainstOrders() {
    Run(Milliseconds(100));
    Line().HostSends(Now(), "eeco\r", 19200);
    Run(Milliseconds(100));
    ASSERT_TRUE(Radio().Echo());
  }
  // Looks at the terminal every 5 ms from now on.
  void Watch(Duration time) {
    for (Duration at{}; at < time; at += Milliseconds(5)) {
      After(at, [this] { seen += Text("txtTerm") + "\n"; });
    }
  }
  void ExpectKept() {
    Run(Seconds(10));
    seen += Text("txtTerm");
    EXPECT_THAT(Received(), HasSubstr(canary));  // the radio did say it
    EXPECT_THAT(seen, Not(HasSubstr(canary)));
    std::ifstream file(log, std::ios::binary);
    const std::string logged{std::istreambuf_iterator<char>(file), {}};
    EXPECT_THAT(logged, Not(HasSubstr(canary)));
    for (const auto& box : Boxes()) EXPECT_THAT(box.Text + box.Details, Not(HasSubstr(canary)));
    for (Control* control : Main().Controls()) {
      if (auto* row = dynamic_cast<SettingRow*>(control)) {
        EXPECT_THAT(row->Text(), Not(HasSubstr(canary)));
      }
    }
  }

  std::string seen;
  std::filesystem::path log;
};

TEST_F(SecretsTest, InTheLoginWhateverTheRadioSays) {
  StartLogged({.Password = canary});
  Watch(Seconds(40));
  const std::string replies[] = {"\r\nyou said " + canary + ">!\r\nPASSWORD INVALID\r\n",
                                 "\r\n" + canary + "\r\n", "\r\nPASSWORD OK " + canary + "\r\n"};
  InWindow("mnuAccessCode", "frmLogin", [&] {
    EchoAgainstOrders();
    for (const std::string& reply : replies) {
      Radio().SetReply("pass " + canary, reply);
      EXPECT_TRUE(Edit("txtPassword", canary));
      EXPECT_TRUE(Click("cmdOK"));
    }
  });
  EXPECT_FALSE(WindowOpen("frmLogin"));
  ExpectKept();
}

// The windows wait for the end of a read that is running, which would end their silence too early.
TEST_F(SecretsTest, InTheMiddleOfARead) {
  StartLogged({});
  Watch(Seconds(30));
  bool during = true;
  OnCommand("unit", [&] {
    EXPECT_TRUE(Click("mnuSetPass"));
    during = WindowOpen("frmSetPass");
  });
  ASSERT_TRUE(Refresh());
  EXPECT_FALSE(during);
  ASSERT_TRUE(RunUntil([&] { return WindowOpen("frmSetPass"); }, Milliseconds(10)));
  EchoAgainstOrders();
  EXPECT_TRUE(Click("PassRadio_0"));
  for (const char* box : {"Pass1", "Pass2"}) EXPECT_TRUE(Edit(box, canary));
  EXPECT_TRUE(Click("frmSetPass.OKButton"));
  EXPECT_EQ(Radio().Setting("own"), "Quillmark SS");
  ExpectKept();
}

}  // namespace
}  // namespace quillmark
