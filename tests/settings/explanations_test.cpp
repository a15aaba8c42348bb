#include <gmock/gmock.h>

#include "sim/bench.h"

namespace quillmark {
namespace {

class ExplanationsTest : public sim::Bench {};

TEST_F(ExplanationsTest, EachLabelExplainsItsSetting) {
  Start();
  std::string silent;
  for (Control* control : Main().Controls()) {
    auto* row = dynamic_cast<SettingRow*>(control);
    if (row != nullptr && !row->Caption.OnClick) silent += row->Caption.Name() + " ";
  }
  EXPECT_EQ(silent, "LPMHOLDLabel LPMLabel ");
  const struct {
    const char *Label, *Title;
    const char* Fact;
  } cases[] = {
      {"UnitLabel", "Unit Address", "last 4 digits"},
      {"SrevLabel", "Software Revision Information", "1.2.0  ddMmmyyyy"},
      {"AlarmLabel", "Alarm Information", "\"Major\""},
  };
  for (const auto& each : cases) {
    ExpectBox(each.Title).Containing(each.Fact).With(Buttons::Ok).With(Icon::None);
    EXPECT_TRUE(Click(each.Label));
  }
  EXPECT_EQ(Sent(), "");
  // The settings' labels are reached in the tabbed view; one depends on the revision.
  ASSERT_TRUE(Click("ButtonAdv"));
  ExpectBox("Sleep").Saying(
      "The SLEEP command (Sleep Mode Enable/Disable) is settable independently at each radio.  The "
      "SLEEP setting determines whether or not sleep mode is invoked when the sleep input pin is "
      "grounded.");
  EXPECT_TRUE(Click("SleepLabel"));
  ExpectBox("Extension Address").Saying("Select / Display extension address. <0-63>");
  EXPECT_TRUE(Click("XADDRLabel"));
  Shared().SoftwareRevision.Text = "200";
  ExpectBox("Extension Address").Saying("Select / Display extension address. <0-31>");
  EXPECT_TRUE(Click("XADDRLabel"));
  ExpectBox("").Containing("XPRI designates a PRIMARY XADDR");
  EXPECT_TRUE(Click("XPRILabel"));
}

}  // namespace
}  // namespace quillmark
