#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/frmComparison.h"

namespace quillmark {
namespace {

using Lines = std::vector<std::string>;

// A row a line: its cells and its mark.
std::string Shown(const frmComparison& window) {
  std::string text;
  for (const TableRow& row : window.tblSettings.Rows()) {
    for (const std::string& cell : row.Cells) text += cell + " | ";
    text += row.Mark == Sign::Same ? "=\n" : "x\n";
  }
  return text;
}

TEST(ComparisonWindow, TellsEachSettingOfBothAndHowManyDiffer) {
  const struct {
    Lines First, Second;
    const char *Counts, *Differing, *All;
    bool CanChoose;
  } cases[] = {
      {{}, {"#PWR 3"}, "Neither of the two has a setting.", "", "", false},
      {{"PWR 30 dBm"},
       {"pwr 30"},
       "The only setting is the same.",
       "Power Level | PWR 30 dBm | pwr 30 | =\n",
       "Power Level | PWR 30 dBm | pwr 30 | =\n",
       false},
      {{"PWR 30"},
       {},
       "1 of 1 setting differs.",
       "Power Level | PWR 30 | (left out) | x\n",
       "Power Level | PWR 30 | (left out) | x\n",
       false},
      {{"OWN Hill  top", "DLINK 19200", "DLINK ON", "PWR 30 dBm"},
       {"PWR 27", "DLINK 19200 ON", "OWN Hill top"},
       "2 of 3 settings differ.",
       "Owner's Name | Hill  top | Hill top | x\nPower Level | PWR 30 dBm | PWR 27 | x\n",
       "Owner's Name | Hill  top | Hill top | x\nPower Level | PWR 30 dBm | PWR 27 | x\n"
       "DLINK | DLINK 19200 ON | DLINK 19200 ON | =\n",
       true},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Counts);
    const auto window = std::make_shared<frmComparison>(
        "a", "b", CompareValues(ValuesOf(each.First), ValuesOf(each.Second)));
    EXPECT_EQ(window->lblCounts.Text(), each.Counts);
    EXPECT_EQ(Shown(*window), each.Differing);
    EXPECT_EQ(window->chkDiffering.Click(), each.CanChoose);
    EXPECT_EQ(Shown(*window), each.All);
  }
}

}  // namespace
}  // namespace quillmark
