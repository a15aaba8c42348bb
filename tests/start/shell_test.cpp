#include <gmock/gmock.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "window_bench.h"

namespace quillmark {
namespace {

using ::testing::ElementsAre;

class ShellTest : public sim::Bench {};

TEST_F(ShellTest, TheSplashStaysForFortyTicksThenTheMainWindowComes) {
  Events().Deliver([&] { Application().Start(); });
  EXPECT_TRUE(WindowOpen("frmSplash"));
  EXPECT_EQ(Text("lblPlatform"), "Version 1.0.0");
  EXPECT_TRUE(Visible("pBar1"));
  Run(Milliseconds(15 * 10));
  EXPECT_EQ(As<ProgressBar>("pBar1").Value(), 11);
  EXPECT_TRUE(Click("lblURL"));
  EXPECT_THAT(DesktopSeen().Addresses, ElementsAre(Text("lblURL")));
  Run(Milliseconds(15 * 30));
  EXPECT_TRUE(WindowOpen("frmSplash"));
  EXPECT_EQ(As<ProgressBar>("pBar1").Value(), 40);
  EXPECT_FALSE(WindowOpen("frmOrvalent"));
  Run(Milliseconds(15));
  EXPECT_FALSE(WindowOpen("frmSplash"));
  EXPECT_TRUE(WindowOpen("frmOrvalent"));
  EXPECT_EQ(Text("frmOrvalent"), "KELVOR Quillmark SS Configuration");
  EXPECT_EQ(Sent(), "");
}

TEST_F(ShellTest, AKeyOrAClickClosesTheSplash) {
  for (const char* way : {"", "lblCompany", "lblCompanyProduct", "lblCorporation", "lblPlatform",
                          "lblProductName", "lblKelvor", "Date"}) {
    Events().Deliver([&] { Application().Start(); });
    EXPECT_TRUE(*way == '\0' ? PressKey("frmSplash") : Click(way)) << way;
    EXPECT_FALSE(WindowOpen("frmSplash")) << way;
    EXPECT_TRUE(WindowOpen("frmOrvalent")) << way;
    Run(Seconds(1));  // and no second main window when the time is up
  }
}

TEST_F(ShellTest, AboutHoldsTheMainWindow) {
  Start();
  ASSERT_TRUE(Click("mnuAbout"));
  EXPECT_FALSE(Visible("frmSplash.pBar1"));
  EXPECT_FALSE(Click("tbr_Terminal"));
  EXPECT_FALSE(CloseWindow("frmOrvalent") && Ended());
  Run(Milliseconds(160 * 15));
  EXPECT_TRUE(WindowOpen("frmSplash"));
  Run(Milliseconds(15));
  EXPECT_FALSE(WindowOpen("frmSplash"));
  EXPECT_TRUE(Enabled("frmOrvalent"));
  EXPECT_FALSE(Shared().SplashAboutMode);
}

TEST_F(ShellTest, ThePreferencesThatAreStored) {
  struct Read {
    int Port = 1;
    bool Bold = true;
    std::uint32_t Text = 0x990000, Back = 0xFFFFFF;
    bool Launch = false, Alive = true, Logout = true, Pass = false;
    bool operator==(const Read&) const = default;
  };
  const auto read = [&] {
    return Read{.Port = Port().CommPort(),
                .Bold = Main().txtTerm.Bold(),
                .Text = Main().txtTerm.ForeColor(),
                .Back = Main().txtTerm.BackColor(),
                .Launch = Shared().ConnectOnLaunch,
                .Alive = Shared().KeepAlive,
                .Logout = Shared().LogoutOnQuit,
                .Pass = Shared().PassEnabled};
  };
  Start();
  EXPECT_EQ(read(), Read{});
  Store("Properties", "CommPort", "7");
  Store("Preferences", "BoldText", "FALSE");
  Store("Preferences", "TextColor", "10027008");
  Store("Preferences", "BackColor", "&hd2fafa");
  Store("Preferences", "KeepAlive", "false");
  Store("Preferences", "LogoutOnQuit", "False");
  Store("Preferences", "PassEnabled", "true");
  Restart();
  Read stored{
      .Port = 7, .Bold = false, .Back = 0xD2FAFA, .Alive = false, .Logout = false, .Pass = true};
  EXPECT_EQ(read(), stored);
  // One damaged value: none of the styles and flags counts; the store is left as it is.
  for (const char* key : {"BoldText", "TextColor", "KeepAlive"}) {
    const std::string good = Stored("Preferences", key);
    Store("Preferences", key, "&Hcolour");
    Restart();
    EXPECT_EQ(read(), Read{.Port = 7}) << key;
    EXPECT_EQ(Stored("Preferences", key), "&Hcolour");
    Store("Preferences", key, good);
  }
  stored.Port = 1;
  for (const char* port : {"", "0", "17", "three", "-1", "99999999999"}) {
    Store("Properties", "CommPort", port);
    Restart();
    EXPECT_EQ(read(), stored) << port;
  }
}

TEST_F(ShellTest, ConnectOnLaunchWaitsForTheFirstTick) {
  Store("Preferences", "ConnectOnLaunch", "True");
  Start();
  EXPECT_TRUE(Main().ConnectOnLaunchPending);
  Run(Milliseconds(900));
  EXPECT_EQ(Sent(), "");
  EXPECT_TRUE(RunUntil([&] { return ReadCycles() == 1; }));
  EXPECT_FALSE(Main().ConnectOnLaunchPending);
  EXPECT_EQ(Text("Mode"), "MODE R");
}

TEST_F(ShellTest, TheTempFolderIsEmptiedOfPlainFiles) {
  namespace fs = std::filesystem;
  const fs::path temp = DataFolder() / "Temp";
  const fs::path outside = ScratchFolder() / "outside.txt";
  fs::create_directories(temp / "folder");
  std::ofstream(outside) << "kept";
  std::ofstream(temp / "old.txt") << "old";
  std::ofstream(temp / "folder" / "kept.txt") << "kept";
  fs::create_symlink(outside, temp / "link.txt");
  fs::create_directory_symlink(ScratchFolder(), temp / "linked");
  Start();
  EXPECT_FALSE(fs::exists(temp / "old.txt"));
  EXPECT_FALSE(fs::is_symlink(temp / "link.txt"));
  EXPECT_FALSE(fs::is_symlink(temp / "linked"));
  EXPECT_TRUE(fs::exists(temp / "folder" / "kept.txt"));
  EXPECT_TRUE(fs::exists(outside));
  fs::remove_all(temp);
  Restart();
  EXPECT_TRUE(fs::is_directory(temp));
}

TEST_F(ShellTest, TheTwoViewsOfTheLowerHalf) {
  Start();
  EXPECT_EQ(FrontFrame(), "frQuick");
  EXPECT_FALSE(Visible("SettingsTab"));
  EXPECT_FALSE(Select("SettingsTab", 3));
  ASSERT_TRUE(Click("ButtonAdv"));
  EXPECT_EQ(Text("ButtonAdv"), "Tasks");
  EXPECT_EQ(FrontFrame(), "NetSet_0");
  EXPECT_TRUE(Enabled("NetSet_5"));
  ASSERT_TRUE(Select("SettingsTab", 5));
  EXPECT_EQ(FrontFrame(), "NetSet_4");
  ASSERT_TRUE(Click("ButtonAdv"));
  EXPECT_EQ(Text("ButtonAdv"), "Advanced");
  EXPECT_EQ(FrontFrame(), "frQuick");
  EXPECT_FALSE(Enabled("NetSet_4"));
}

TEST_F(ShellTest, TheLayoutRules) {
  Start();
  const auto& main = Main();
  ASSERT_TRUE(Resize(20000, 12000));
  EXPECT_EQ(main.txtTerm.Width(), 19880);
  EXPECT_EQ(main.txtTerm.Height(), main.SettingsTab.Top() - main.tbrToolBar.Height() - 120);
  EXPECT_EQ(main.Frame1.Left(), 20000 - 1.5 * main.Frame1.Width());
  const double terminal = main.txtTerm.Height();
  const double info = main.InfoFrame.Top();
  const double offset = main.NetSet[0].Top() - info;
  ASSERT_TRUE(Click("tbr_Terminal"));
  EXPECT_FALSE(Visible("txtTerm"));
  EXPECT_EQ(main.Height(), 10200 - terminal - 120);
  EXPECT_EQ(main.InfoFrame.Top(), main.tbrToolBar.Height() + 60);
  EXPECT_EQ(main.NetSet[5].Top(), main.InfoFrame.Top() + offset);
  ASSERT_TRUE(Click("tbr_Terminal"));
  EXPECT_TRUE(Visible("txtTerm"));
  EXPECT_EQ(main.Height(), 10200);  // as at load, not as before hiding
  EXPECT_EQ(main.NetSet[0].Top(), info + offset);
}

TEST_F(ShellTest, QuittingLogsOutDrainsAndCloses) {
  Start();
  ASSERT_TRUE(Connect());
  ExpectSaveFile("Open a Communications Log File").Choose(ScratchFolder() / "x.log");
  ExpectBox("Open a Communications Log File").Reply(Answer::Yes);
  ASSERT_TRUE(Click("mnuOpenLog"));
  ClearLog();
  EXPECT_TRUE(Quit());
  EXPECT_EQ(Sent(), "PASS NONE\r");
  EXPECT_EQ(Radio().Commands().back(), "PASS NONE");  // it has wholly left
  EXPECT_FALSE(Port().PortOpen());
  EXPECT_TRUE(Enabled("mnuOpenLog"));
  // From a closed port: opened only for that.
  Restart();
  ClearLog();
  const int openings = Port().Openings();
  ASSERT_TRUE(Click("mnuFileExit"));
  EXPECT_TRUE(Ended());
  EXPECT_EQ(Sent(), "PASS NONE\r");
  EXPECT_EQ(Port().Openings(), openings + 1);
  // The preference off: nothing is opened. A port that is not there: no box.
  Store("Preferences", "LogoutOnQuit", "False");
  Restart();
  ClearLog();
  EXPECT_TRUE(Quit());
  EXPECT_EQ(Sent(), "");
  Store("Preferences", "LogoutOnQuit", "True");
  Unplug();
  Restart();
  EXPECT_TRUE(Quit());
}

TEST_F(ShellTest, DataThatCannotBeSentIsAskedAbout) {
  Start();
  ASSERT_TRUE(Connect());
  const auto question = [&]() -> sim::Expectation& {
    return ExpectBox(ProgramTitle)
        .Saying("Data cannot be sent")
        .With(Icon::Question)
        .With(Buttons::AbortRetryIgnore);
  };
  Port().HoldOutput(true);
  question().Reply(Answer::Retry);
  question().Reply(Answer::Abort);
  const Duration began = Now();
  EXPECT_FALSE(Quit());
  EXPECT_EQ(Now() - began, Seconds(20));
  EXPECT_TRUE(WindowOpen("frmOrvalent"));
  EXPECT_TRUE(Port().PortOpen());
  question().Reply(Answer::Ignore);
  EXPECT_TRUE(Quit());
  EXPECT_FALSE(Port().PortOpen());
  // Opened for the logout alone, it is closed again.
  Restart();
  Port().HoldOutput(true);
  question().Reply(Answer::Abort);
  EXPECT_FALSE(Quit());
  EXPECT_FALSE(Port().PortOpen());
}

TEST_F(ShellTest, AnEndDuringTheSplashTouchesNothing) {
  Store("Preferences", "LogoutOnQuit", "True");
  Events().Deliver([&] { Application().Start(); });
  Events().Deliver([&] { Application().Form_Unload(); });
  EXPECT_TRUE(Ended());
  EXPECT_EQ(Sent(), "");
  Restart();
  ASSERT_TRUE(Click("mnuAbout"));
  Events().Deliver([&] { Application().Form_Unload(); });
  Restart();  // the About box of before is gone
  EXPECT_FALSE(WindowOpen("frmSplash"));
  Run(Seconds(5));
  EXPECT_FALSE(WindowOpen("frmSplash"));
}

}  // namespace
}  // namespace quillmark
