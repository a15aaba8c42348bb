#include <gtest/gtest.h>

#include <initializer_list>

#include "sim/bench.h"

namespace quillmark {
namespace {

class ViewRulesTest : public sim::Bench {};

TEST_F(ViewRulesTest, TheViewFollowsTheRevision) {
  const struct {
    const char* Revision;
    bool From200, From300, From320;
  } cases[] = {{"1.9.9", false, false, false}, {"2.0.0", true, false, false},
               {"2.9.9", true, false, false},  {"3.0.0", true, true, false},
               {"3.1.9", true, true, false},   {"3.2.0", true, true, true},
               {"x.y.z", false, false, false}, {"1.10.2", false, false, false}};
  Start();
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Revision);
    UseRadio({.Revision = each.Revision, .Mode = 'M'});
    ASSERT_TRUE(Connect());
    const auto expectShown = [&](bool shown, std::initializer_list<const char*> names) {
      for (const char* name : names) {
        EXPECT_EQ(Visible(name), shown) << name;
        // The reply to rtu enables its row, also while that is hidden.
        if (name == std::string("SoftRTU")) continue;
        EXPECT_EQ(Enabled(name), shown) << name;
      }
    };
    expectShown(!each.From200, {"XMIN", "XMINLabel", "XMAX", "XMAXLabel"});
    expectShown(each.From200,
                {"XMAP", "XMAPLabel", "XPRI", "XPRILabel", "XRSSI", "XRSSILabel", "DTYPE",
                 "DTypeLabel", "DLINK", "DLinkLabel", "SoftRTU", "SoftRTULabel"});
    expectShown(each.From300, {"RXD", "RXDLabel", "CSADDR", "CSADDRLabel"});
    EXPECT_EQ(Visible("LPMHOLD"), each.From320);
    EXPECT_EQ(Visible("LPMHOLDLabel"), each.From320);
    EXPECT_EQ(Visible("LPM"), each.From320);
    const struct {
      const char *Row, *Label;
      bool Above;
      double Low, High;
    } tops[] = {{"DiagOptions", "OptionsLabel", each.From200, 360, 1680},
                {"ShowSync", "ShowSyncLabel", each.From200, 1800, 2160},
                {"HopTime", "HopLabel", each.From300, 720, 1080},
                {"SkippedZones", "SkipLabel", each.From300, 1080, 1440},
                {"SleepMode", "SleepLabel", each.From300, 1440, 1800}};
    for (const auto& top : tops) {
      EXPECT_EQ(Top(top.Row), top.Above ? top.High : top.Low) << top.Row;
      EXPECT_EQ(Top(top.Label), Top(top.Row)) << top.Label;
    }
    ASSERT_TRUE(Click("tbr_Disconnect"));
  }
  // Two digits shift the characters: "1.10." gives 1, 1 and the point.
  EXPECT_EQ(Shared().SoftwareRevision.Text, "11.");
  EXPECT_EQ(Shared().SoftwareRevision.Number(), 11.0);
}

TEST_F(ViewRulesTest, TheViewFollowsTheMode) {
  const struct {
    const char* Mode;
    bool Setup, Rssi, Master, Sleep, Xaddr;
  } cases[] = {
      {"MODE M", false, false, true, false, true}, {"mode m", false, false, true, false, true},
      {"MODE M", true, true, true, false, true},   {"MODE R", false, true, false, true, false},
      {"MODE X", false, true, false, true, true},  {"MODE", false, true, false, true, true}};
  UseRadio({.Mode = 'M'});
  Start();
  ASSERT_TRUE(Connect());
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Mode);
    Radio().SetReply("mode", std::string("\r\n") + each.Mode + "\r\n");
    if (each.Setup) Type("txtTerm", "setup\r");
    ASSERT_TRUE(Refresh());
    EXPECT_EQ(Text("Mode"), each.Mode);
    EXPECT_EQ(Shared().InSetupMode, each.Setup);
    EXPECT_EQ(Enabled("ButtonRSSI"), each.Rssi);
    EXPECT_TRUE(Enabled("ButtonZoneData"));
    for (const char* row : {"RetryCount", "RepeatCount", "HopTime", "SkippedZones", "DataBuff",
                            "StoreAndForward", "FEC", "LPM", "CSADDR"}) {
      EXPECT_EQ(Enabled(row), each.Master) << row;
    }
    EXPECT_EQ(MousePointer("RetryCount"), each.Master ? Pointer::Arrow : Pointer::NoDrop);
    EXPECT_EQ(Enabled("SleepMode"), each.Sleep);
    EXPECT_EQ(MousePointer("SleepMode"), each.Sleep ? Pointer::Arrow : Pointer::NoDrop);
    EXPECT_EQ(Enabled("XADDR"), each.Xaddr);
    if (each.Setup) Type("txtTerm", "quit\r");
    Run(Milliseconds(100));
  }
}

}  // namespace
}  // namespace quillmark
