#include <gmock/gmock.h>

#include "window_bench.h"

namespace quillmark {
namespace {

class OptionWindowsTest : public WindowBench {
 public:
  void ShowSettings(sim::SimRadioOptions options = {}) {
    StartConnected(std::move(options));
    ASSERT_TRUE(Click("ButtonAdv"));
  }
};

TEST_F(OptionWindowsTest, TheDiagnosticLink) {
  ShowSettings();
  const auto inWindow = [&](std::function<void()> acts) {
    return InWindow("DLINK", "frmDLINKOptions", std::move(acts));
  };
  EXPECT_EQ(inWindow([&] {
              EXPECT_EQ(Text("frmDLINKOptions"), "Diagnostic Link Options");
              EXPECT_EQ(Text("InfoLabel"),
                        "Select the baud rate for the diagnostic link,\rand select if the "
                        "diagnostic link should be enabled.");
              EXPECT_TRUE(Checked("OnOption_0"));
              EXPECT_TRUE(Checked("BaudRate_4"));
              EXPECT_TRUE(Click("CancelButton"));
            }),
            "\r");
  const Duration began = Now();
  EXPECT_EQ(inWindow([&] {
              EXPECT_TRUE(Click("OnOption_1"));
              EXPECT_FALSE(Checked("OnOption_0"));
              EXPECT_TRUE(Click("BaudRate_7"));
              EXPECT_FALSE(Checked("BaudRate_4"));
              EXPECT_TRUE(Click("OKButton"));
            }),
            "dlink off\rdlink 115200\r\r");
  EXPECT_EQ(Now() - began, Milliseconds(100));
  ASSERT_TRUE(RunUntil([&] { return Text("DLINK") == "DLINK 115200 (OFF)"; }));
  // Neither a rate nor ON in the field.
  Main().At(SettingId::DLINK).Text = "n/a";
  EXPECT_EQ(inWindow([&] {
              EXPECT_TRUE(Checked("OnOption_1"));
              EXPECT_TRUE(Click("OnOption_0"));
              EXPECT_TRUE(Click("OKButton"));
            }),
            "dlink on\r\r");
  // A port that closes meanwhile is told once.
  ExpectBox("Error").Containing("error communicating with the radio").With(Icon::Exclamation);
  EXPECT_EQ(inWindow([&] {
              Port().SetPortOpen(false);
              EXPECT_TRUE(Click("OKButton"));
            }),
            "");
}

TEST_F(OptionWindowsTest, TheDiagnosticType) {
  ShowSettings();
  const struct {
    const char *Button, *Sent;
  } cases[] = {
      {"RootButton", "dtype root\r\r"}, {"NodeButton", "dtype node\r\r"}, {"CancelButton", "\r"}};
  for (const auto& each : cases) {
    EXPECT_EQ(InWindow("DTYPE", "frmDTYPEOptions", [&] { EXPECT_TRUE(Click(each.Button)); }),
              each.Sent);
  }
}

TEST_F(OptionWindowsTest, TheSoftwareRtu) {
  ShowSettings();
  const struct {
    const char *Field, *Shown;
    std::string Id;
    bool On;
    const char* Sent;
    bool Refused;
  } cases[] = {{"RTU 7 (OFF)", "7", "80", false, "rtu off\rrtu 80\r\r", false},
               {"RTU 17 (ON)", "17", "0", true, "rtu on\rrtu 0\r\r", false},
               {"RTU 80 (ON)", "80", "81", true, "rtu on\r\r", true},
               {"n/a", "", "-1", false, "rtu off\r\r", true},
               {"RTU 7 (OFF)", "7", "1.5", false, "rtu off\r\r", true},
               {"RTU 7 (OFF)", "7", "", false, "rtu off\r\r", true}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Id);
    Main().At(SettingId::SoftRTU).Text = each.Field;
    if (each.Refused) {
      ExpectBox("Error")
          .Saying("The RTU ID must be a number between 0 and 80, inclusive.")
          .With(Icon::Information);
    }
    EXPECT_EQ(InWindow("SoftRTU", "frmRTUOptions",
                       [&] {
                         EXPECT_EQ(Text("RTUID"), each.Shown);
                         EXPECT_EQ(Checked("OnOption_0"), each.On);
                         EXPECT_TRUE(Edit("RTUID", each.Id));
                         EXPECT_TRUE(Click("OKButton"));
                       }),
              each.Sent);
  }
}

TEST_F(OptionWindowsTest, TheExtensionMap) {
  ShowSettings();
  ASSERT_TRUE(Radio().Program("xmap", "8000000A"));
  const auto checkedBoxes = [&] {
    std::string boxes;
    for (int i = 0; i < 32; ++i) {
      if (Checked("Check1_" + std::to_string(i))) boxes += std::to_string(i) + " ";
    }
    return boxes;
  };
  EXPECT_EQ(InWindow("XMAP", "frmXMAP",
                     [&] {
                       EXPECT_EQ(checkedBoxes(), "1 3 31 ");
                       EXPECT_TRUE(Click("UnCheckAllButton"));
                       EXPECT_EQ(checkedBoxes(), "");
                       EXPECT_TRUE(Click("CurrentButton"));
                       EXPECT_TRUE(Click("Check1_0"));
                       EXPECT_TRUE(Click("Check1_31"));
                       EXPECT_EQ(checkedBoxes(), "0 1 3 ");
                       EXPECT_TRUE(Click("ProgramButton"));
                     }),
            "xmap\rxmap 0000000B\r");
  EXPECT_TRUE(Shared().RefreshRequested);
  Run(Seconds(1));
  EXPECT_EQ(Radio().Setting("xmap"), "0000000B");
  EXPECT_EQ(InWindow("XMAP", "frmXMAP",
                     [&] {
                       EXPECT_TRUE(Click("CheckAllButton"));
                       EXPECT_TRUE(Click("CloseButton"));
                     }),
            "xmap\r");
  // Replies of odd shapes leave the boxes empty, which is told, and nothing is programmed that
  // nobody has set.
  for (const char* reply : {"", "\r\n", "\r\nXMAP\r\n", "\r\nXMAP 0000000\r\n",
                            "\r\nXMAP 0000000G\r\n", "\r\nXMAP 0000000F0\r\n"}) {
    Radio().SetReply("xmap", reply);
    ExpectBox("XMAP Configuration").Containing("could not be read").With(Icon::Exclamation);
    InWindow("XMAP", "frmXMAP", [&] {
      EXPECT_EQ(checkedBoxes(), "");
      EXPECT_FALSE(Click("ProgramButton"));
      EXPECT_TRUE(Click("Check1_3"));
      EXPECT_TRUE(Enabled("ProgramButton"));
      EXPECT_TRUE(Click("CloseButton"));
    });
  }
}

TEST_F(OptionWindowsTest, TheExtensionMapAskedForInTheMiddleOfARead) {
  ShowSettings();
  ASSERT_TRUE(Radio().Program("xmap", "8000000A"));
  ExpectWindow("frmXMAP").Do([&] {
    EXPECT_TRUE(Checked("Check1_31"));
    EXPECT_TRUE(Checked("Check1_3"));
    EXPECT_FALSE(Checked("Check1_0"));
    EXPECT_TRUE(Click("CloseButton"));
  });
  OnCommand("pwr", [&] { EXPECT_TRUE(Click("XMAP")); });
  ASSERT_TRUE(Refresh());
  Run(Seconds(1));
}

}  // namespace
}  // namespace quillmark
