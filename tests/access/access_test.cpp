#include <gmock/gmock.h>

#include <string>
#include <utility>

#include "window_bench.h"

namespace quillmark {
namespace {

using AccessTest = WindowBench;

TEST_F(AccessTest, LoggingInWithThePassword) {
  StartConnected({.Password = "k9z!"});
  ASSERT_TRUE(Enabled("tbr_Login"));
  EXPECT_EQ(InWindow("tbr_Login", "frmLogin",
                     [&] {
                       EXPECT_EQ(Text("frmLogin"), "Enter Password:");
                       EXPECT_EQ(Text("Label"), "&Password:");
                       EXPECT_EQ(Text("InfoLabel"), "Please enter a radio password:");
                       EXPECT_FALSE(Visible("NoneButton"));
                       EXPECT_TRUE(As<TextBox>("txtPassword").Secret());
                       EXPECT_TRUE(Edit("txtPassword", "wrong"));
                       EXPECT_EQ(Text("txtPassword"), "wron");
                       ExpectBox("Login").Saying("Invalid Password, try again!").With(Icon::None);
                       EXPECT_TRUE(Click("cmdOK"));
                       EXPECT_TRUE(WindowOpen("frmLogin"));
                       EXPECT_EQ(As<TextBox>("txtPassword").SelLength(), 4U);
                       EXPECT_FALSE(Radio().Echo());
                       EXPECT_TRUE(Edit("txtPassword", "k9z!"));
                       EXPECT_TRUE(Click("cmdOK"));
                     }),
            "deco\rpass wron\rpass k9z!\r\reeco\r");
  EXPECT_EQ(Text("txtTerm"), "*** PASSWORD ACCEPTED ***");
  EXPECT_FALSE(Enabled("tbr_Login"));
  EXPECT_TRUE(Enabled("tbr_Logout"));
  Run(Seconds(3));
  EXPECT_TRUE(Radio().LoggedIn() && Radio().Echo());
  EXPECT_FALSE(Shared().RefreshRequested);
}

TEST_F(AccessTest, TheWaysOutOfTheLogin) {
  StartConnected({.Password = "abcd"});
  const Duration began = Now();
  EXPECT_EQ(InWindow("mnuAccessCode", "frmLogin", [&] { EXPECT_TRUE(Click("cmdCancel")); }),
            "deco\reeco\r");
  EXPECT_LT(Now() - began, Seconds(1));
  // A silent radio is a refusal after three seconds; then the port goes, and nothing can be done.
  Faults().SilentFrom = Radio().CommandCount() + 1;
  EXPECT_EQ(InWindow("mnuAccessCode", "frmLogin",
                     [&] {
                       const Duration asked = Now();
                       ExpectBox("Login").Saying("Invalid Password, try again!");
                       EXPECT_TRUE(Edit("txtPassword", "abcd"));
                       EXPECT_TRUE(Click("cmdOK"));
                       EXPECT_EQ(Now() - asked, Seconds(3));
                       Port().SetPortOpen(false);
                       EXPECT_TRUE(Click("cmdCancel"));
                       EXPECT_TRUE(WindowOpen("frmLogin"));
                       EXPECT_TRUE(Click("cmdOK"));
                       EXPECT_TRUE(CloseWindow("frmLogin"));
                     }),
            "deco\rpass abcd\r");
  for (const char* menu : {"mnuAccessCode", "mnuEncryptCode", "mnuSetupMode"}) {
    ExpectBox("User Help").Saying("Please Toggle COMM Port open first.").With(Icon::None);
    EXPECT_TRUE(Click(menu)) << menu;
  }
}

TEST_F(AccessTest, NothingIsReadWhileALoginIsOpen) {
  StartConnected();
  EXPECT_EQ(InWindow("mnuAccessCode", "frmLogin",
                     [&] {
                       Shared().AskForRead();
                       Run(Seconds(600));
                       EXPECT_TRUE(Click("cmdCancel"));
                     }),
            "deco\reeco\r");
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
}

TEST_F(AccessTest, TheEncryptionCode) {
  StartConnected();
  const std::string probe = "addr\raddr\rdeco\rADDR NONE\reeco\rdeco\r";
  EXPECT_EQ(InWindow("mnuEncryptCode", "frmLogin",
                     [&] {
                       EXPECT_EQ(Text("frmLogin"), "Enter Encryption Code:");
                       EXPECT_EQ(Text("Label"), "&Code:");
                       EXPECT_EQ(Text("InfoLabel"),
                                 "Please enter an encryption code (1-255), or click 'None' not to "
                                 "use an encryption code:");
                       EXPECT_TRUE(Visible("NoneButton"));
                       EXPECT_TRUE(Edit("txtPassword", "2560"));
                       EXPECT_EQ(Text("txtPassword"), "256");
                       ExpectBox("Login").Saying("Invalid Encryption Code.").With(Icon::None);
                       EXPECT_TRUE(Click("cmdOK"));
                       EXPECT_TRUE(Edit("txtPassword", "255"));
                       EXPECT_TRUE(Click("cmdOK"));
                     }),
            probe + "code 256\rcode 255\r\reeco\r");
  EXPECT_EQ(Text("txtTerm"), "*** ENCRYPTION CODE ACCEPTED ***");
  EXPECT_EQ(InWindow("mnuEncryptCode", "frmLogin", [&] { EXPECT_TRUE(Click("NoneButton")); }),
            probe + "code none\r\reeco\r");
  Run(Seconds(1));
  EXPECT_TRUE(Radio().Echo());
  // Not logged in: told before a code is asked for.
  ASSERT_TRUE(Click("tbr_Disconnect"));
  UseRadio({.Password = "abcd"});
  ASSERT_TRUE(Connect());
  ClearLog();
  ExpectBox("Error!")
      .Saying(
          "Error! You are not currently logged in, and therefore will not be able to enter in "
          "an encryption code.")
      .With(Icon::Critical);
  EXPECT_TRUE(Click("mnuEncryptCode"));
  EXPECT_EQ(Sent(), "addr\raddr\rdeco\rADDR NONE\reeco\r");
  EXPECT_TRUE(Text("txtTerm").empty());
}

TEST_F(AccessTest, SettingAndRemovingThePassword) {
  StartConnected();
  ASSERT_TRUE(Click("mnuSetPass"));
  EXPECT_EQ(Text("frmSetPass"), "Radio Password Setup");
  EXPECT_TRUE(Checked("PassRadio_1"));
  EXPECT_FALSE(Enabled("Pass1"));
  EXPECT_TRUE(Click("PassRadio_0"));
  EXPECT_EQ(As<Form>("frmSetPass").Focus(), &Find("Pass1"));
  EXPECT_TRUE(Type("txtTerm", "owm "));  // half a line would swallow the password
  EXPECT_TRUE(Edit("Pass1", "a1b2"));
  EXPECT_TRUE(Edit("Pass2", "A1b2"));
  ExpectBox("Error!")
      .Saying("The two passwords do not match!\rPlease reenter the password.")
      .With(Icon::Critical);
  EXPECT_TRUE(Click("frmSetPass.OKButton"));
  const auto enter = [&](const char* word) {
    for (const char* box : {"Pass1", "Pass2"}) EXPECT_TRUE(Edit(box, word));
    EXPECT_TRUE(Click("frmSetPass.OKButton"));
  };
  ExpectBox("Error!").Containing("log out").With(Icon::Critical);
  enter("None");
  enter("a1b2");
  EXPECT_FALSE(WindowOpen("frmSetPass"));
  EXPECT_TRUE(Type("txtTerm", "pwr 27\r"));  // the rest of that line would be another one
  Run(Milliseconds(100));
  EXPECT_EQ(Sent(), "deco\rk7m2 a1b2\reeco\r");
  EXPECT_EQ(Text("txtTerm"), "*** NEW PASSWORD ACCEPTED ***");
  EXPECT_EQ(Stored("Preferences", "PassEnabled"), "True");
  EXPECT_FALSE(Enabled("tbr_Login"));
  Run(Seconds(1));
  EXPECT_TRUE(Radio().Echo());

  // Not logged in: nothing is removed.
  ASSERT_TRUE(Click("tbr_Logout"));
  EXPECT_EQ(Text("NotLoggedIn"), "Logged out: a radio with a password refuses changes");
  Run(Seconds(1));
  ClearLog();
  ASSERT_TRUE(Click("mnuSetPass"));
  enter("zzzz");
  EXPECT_EQ(Text("txtTerm"), "*** NEW PASSWORD REFUSED ***");
  EXPECT_TRUE(CloseWindow("frmSetPass"));
  ClearLog();
  const auto remove = [&] {
    ASSERT_TRUE(Click("mnuSetPass"));
    EXPECT_TRUE(Checked("PassRadio_0"));
    EXPECT_TRUE(Click("PassRadio_1"));
    ExpectBox("Radio Password Setup");
    EXPECT_TRUE(Click("frmSetPass.OKButton"));
    EXPECT_TRUE(Boxes().back().Irreversible);
    EXPECT_TRUE(WindowOpen("frmSetPass"));
    ExpectBox("Radio Password Setup").Reply(Answer::Yes);
    EXPECT_TRUE(Click("frmSetPass.OKButton"));
    EXPECT_FALSE(WindowOpen("frmSetPass"));
  };
  ExpectBox("Error!")
      .Saying("You must be logged in to disable password protection.")
      .With(Icon::Critical);
  remove();
  EXPECT_EQ(Sent(), "deco\rk7m2\reeco\r");
  EXPECT_EQ(Stored("Preferences", "PassEnabled"), "True");
  Type("txtTerm", "pass a1b2\r");
  Run(Seconds(1));
  EXPECT_FALSE(Visible("NotLoggedIn"));
  EXPECT_TRUE(Enabled("tbr_Logout"));
  ClearLog();
  remove();
  EXPECT_EQ(Sent(), "deco\rk7m2\rPASS NONE\r\reeco\r");
  EXPECT_EQ(Text("txtTerm").substr(0, 24), "*** PASSWORD REMOVED ***");
  EXPECT_EQ(Stored("Preferences", "PassEnabled"), "False");
  EXPECT_TRUE(Enabled("tbr_Login"));
  EXPECT_FALSE(Enabled("tbr_Logout"));
}

TEST_F(AccessTest, TheWaysOutOfThePasswordWindow) {
  StartConnected();
  Store("Preferences", "PassEnabled", "True");
  // The close box brings the echo back as well; a second click does not open a second one.
  ClearLog();
  ASSERT_TRUE(Click("mnuSetPass"));
  ASSERT_TRUE(Click("mnuSetPass"));
  EXPECT_TRUE(CloseWindow("frmSetPass"));
  EXPECT_EQ(Sent(), "deco\reeco\r");
  // Nothing is removed behind a Cancel, and once behind two clicks.
  const std::pair<const char*, const char*> seconds[] = {
      {"frmSetPass.CancelButton", "deco\rk7m2\reeco\r"},
      {"frmSetPass.OKButton", "deco\rk7m2\rPASS NONE\r\reeco\r"}};
  for (const auto& [second, sent] : seconds) {
    ClearLog();
    ASSERT_TRUE(Click("mnuSetPass"));
    EXPECT_TRUE(Click("PassRadio_1"));
    ExpectBox("Radio Password Setup").Reply(Answer::Yes);
    After(Milliseconds(200), [&, button = second] { EXPECT_TRUE(Click(button)); });
    EXPECT_TRUE(Click("frmSetPass.OKButton"));
    EXPECT_EQ(Sent(), sent);
  }
}

}  // namespace
}  // namespace quillmark
