#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "window_bench.h"

namespace quillmark {
namespace {

using PreferencesWindowTest = WindowBench;

TEST_F(PreferencesWindowTest, OkPutsThemInForceAndStoresThem) {
  Start();
  InWindow("mnuPreferences", "frmPreferences", [&] {
    EXPECT_EQ(Text("frmPreferences"), "Preferences");
    EXPECT_EQ(As<ListBox>("TextColorList").Items(),
              (std::vector<std::string>{"White", "Black", "Light Blue", "Blue", "Navy Blue", "Red",
                                        "Maroon", "Green", "Dark Green", "Light Yellow"}));
    EXPECT_EQ(Text("TextColorList"), "Navy Blue");
    EXPECT_EQ(Text("BackgroundColorList"), "White");
    EXPECT_FALSE(Checked("ConnectOnLaunchCheck"));
    EXPECT_TRUE(Checked("KeepAliveCheck") && Checked("LogoutCheck") && Checked("BoldCheck"));
    EXPECT_TRUE(Click("OKButton"));
  });
  std::string stored;
  for (const char* key : {"TextColor", "BackColor", "BoldText", "ConnectOnLaunch"}) {
    stored += Stored("Preferences", key) + " ";
  }
  EXPECT_EQ(stored, "10027008 16777215 True False ");

  InWindow("mnuPreferences", "frmPreferences", [&] {
    for (const char* box :
         {"ConnectOnLaunchCheck", "KeepAliveCheck", "LogoutCheck", "PlanFirstCheck", "BoldCheck"}) {
      EXPECT_TRUE(Click(box));
    }
    EXPECT_TRUE(Edit("TextColorList", "Light Yellow"));
    EXPECT_TRUE(Edit("BackgroundColorList", "Black"));
    EXPECT_EQ(As<ListBox>("ThemeList").Items(),
              (std::vector<std::string>{"Light", "Dark", "As the desktop"}));
    EXPECT_EQ(Text("ThemeList"), "As the desktop");
    EXPECT_TRUE(Edit("ThemeList", "Dark"));
    EXPECT_EQ(DesktopSeen().Used, Theme::AsDesktop);
    EXPECT_FALSE(Shared().ConnectOnLaunch);  // not before OK
    EXPECT_TRUE(Click("OKButton"));
  });
  const auto expectInForce = [&] {
    EXPECT_TRUE(Shared().ConnectOnLaunch);
    EXPECT_FALSE(Shared().KeepAlive);
    EXPECT_FALSE(Shared().LogoutOnQuit);
    EXPECT_TRUE(Shared().PlanFirst);
    EXPECT_FALSE(Main().txtTerm.Bold());
    EXPECT_EQ(Main().txtTerm.ForeColor(), 0xD2FAFAU);
    EXPECT_EQ(Main().txtTerm.BackColor(), 0U);
    EXPECT_EQ(DesktopSeen().Used, Theme::Dark);
  };
  expectInForce();
  Restart();
  expectInForce();
  InWindow("mnuPreferences", "frmPreferences", [&] {
    EXPECT_TRUE(Edit("TextColorList", "Red"));
    EXPECT_TRUE(Click("CancelButton"));
  });
  expectInForce();
  EXPECT_EQ(Stored("Preferences", "TextColor"), std::to_string(0xD2FAFA));
  EXPECT_EQ(Stored("Preferences", "Theme"), "Dark");
  // A colour of no row leaves the list at its first.
  Main().txtTerm.ForeColor = 0x123456;
  InWindow("mnuPreferences", "frmPreferences", [&] {
    EXPECT_EQ(Text("TextColorList"), "White");
    EXPECT_TRUE(CloseWindow("frmPreferences"));
  });
}

}  // namespace
}  // namespace quillmark
