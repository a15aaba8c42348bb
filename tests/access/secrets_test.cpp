#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "sim/bench.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string canary = "Zq7#";

// A secret that a radio echoes against its orders stands nowhere: not in the terminal, not in the
// log, in no box, in no row and in no stored preference.
class SecretsTest : public sim::Bench {
 public:
  void StartLogged(sim::SimRadioOptions options) {
    TolerateBoxes();
    StartConnected(std::move(options));
    log = ScratchFolder() / "session.log";
    ExpectSaveFile("Open a Communications Log File").Choose(log);
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
  void InLogin(const std::string& menu, std::function<void()> acts) {
    ExpectWindow("frmLogin").Do(std::move(acts));
    EXPECT_TRUE(Click(menu));
  }
  void SetPassword() {
    EXPECT_TRUE(Click("PassRadio_0"));
    EXPECT_TRUE(Edit("Pass1", canary));
    EXPECT_TRUE(Edit("Pass2", canary));
    EXPECT_TRUE(Click("frmSetPass.OKButton"));
  }

  std::string seen;
  std::filesystem::path log;
};

TEST_F(SecretsTest, InTheLoginWhateverTheRadioSays) {
  StartLogged({.Password = canary});
  Watch(Seconds(40));
  const std::string replies[] = {"\r\nyou said " + canary + ">!\r\nPASSWORD INVALID\r\n",
                                 "\r\n" + canary + "\r\n", "\r\nPASSWORD OK " + canary + "\r\n"};
  InLogin("mnuAccessCode", [&] {
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

TEST_F(SecretsTest, WithALateReplyAndASecondTry) {
  StartLogged({.Password = "else"});
  Watch(Seconds(20));
  InLogin("mnuAccessCode", [&] {
    EchoAgainstOrders();
    Faults().LateReplyAt = Radio().CommandCount() + 1;
    Faults().LateReplyMs = 3010;
    EXPECT_TRUE(Edit("txtPassword", canary));
    After(Milliseconds(1), [&] { Click("cmdOK"); });  // a double click
    EXPECT_TRUE(Click("cmdOK"));
    EXPECT_TRUE(Click("cmdOK"));
    EXPECT_TRUE(Click("cmdCancel"));
  });
  ExpectKept();
}

TEST_F(SecretsTest, InTheEncryptionCode) {
  StartLogged({});
  Watch(Seconds(20));
  InLogin("mnuEncryptCode", [&] {
    EchoAgainstOrders();
    As<TextBox>("txtPassword").MaxLength = 9;
    EXPECT_TRUE(Edit("txtPassword", canary));
    EXPECT_TRUE(Click("cmdOK"));
    EXPECT_TRUE(Click("cmdCancel"));
  });
  ExpectKept();
}

TEST_F(SecretsTest, InANewPassword) {
  StartLogged({});
  Watch(Seconds(20));
  ASSERT_TRUE(Click("mnuSetPass"));
  EchoAgainstOrders();
  SetPassword();
  EXPECT_EQ(Radio().Setting("own"), "Quillmark SS");
  ExpectKept();
}

TEST_F(SecretsTest, WhenTheRadioIsLostInTheMiddle) {
  StartLogged({.Password = canary});
  Watch(Seconds(20));
  InLogin("mnuAccessCode", [&] {
    EchoAgainstOrders();
    EXPECT_TRUE(Edit("txtPassword", canary));
    Faults().NoPromptAt = Radio().CommandCount() + 1;
    Radio().SetReply("pass " + canary, "\r\n" + canary, false);
    OnCommand("pass " + canary, [&] { After(Milliseconds(50), [&] { Unplug(); }); });
    EXPECT_TRUE(Click("cmdOK"));
    EXPECT_TRUE(CloseWindow("frmLogin"));
  });
  Faults() = {};
  Plug();
  EXPECT_TRUE(Connect());
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
  SetPassword();
  ExpectKept();
}

TEST_F(SecretsTest, NoWayOutLeavesTheEchoOff) {
  const auto expectEcho = [&](const std::string& last) {
    EXPECT_EQ(SentCommands().back(), last);
    EXPECT_TRUE(Radio().Echo());
  };
  StartConnected();
  ASSERT_TRUE(Click("mnuSetPass"));
  ASSERT_TRUE(Click("tbr_Disconnect"));
  expectEcho("CLOS");
  EXPECT_TRUE(CloseWindow("frmSetPass"));
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Click("mnuSetPass"));
  EXPECT_TRUE(Quit());
  expectEcho("PASS NONE");
  Restart();
  ASSERT_TRUE(Connect());
  InLogin("mnuAccessCode", [&] { EXPECT_TRUE(CloseWindow("frmLogin")); });
  EXPECT_TRUE(Quit());
  expectEcho("PASS NONE");
}

}  // namespace
}  // namespace quillmark
