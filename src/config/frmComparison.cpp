#include "config/frmComparison.h"

#include <algorithm>
#include <utility>

namespace quillmark {

namespace {

enum Column { settingColumn, firstColumn, secondColumn, markColumn };

std::string Shown(const ComparedValue& value, const std::string& line) {
  return line.empty() ? "(left out)" : ShownValue(*value.What, line);
}

TableRow RowOf(const ComparedValue& value) {
  return {.Cells = {Subject(*value.What), Shown(value, value.First), Shown(value, value.Second)},
          .Mark = value.Same ? Sign::Same : Sign::Differs};
}

// "4 of 33 settings differ."
std::string Counts(std::size_t differing, std::size_t all) {
  if (all == 0) return "Neither of the two has a setting.";
  if (differing == 0 && all == 1) return "The only setting is the same.";
  if (differing == 0) return "All " + std::to_string(all) + " settings are the same.";
  return std::to_string(differing) + " of " + std::to_string(all) +
         (all == 1 ? " setting" : " settings") + (differing == 1 ? " differs." : " differ.");
}

}  // namespace

frmComparison::frmComparison(const std::string& firstTitle, const std::string& secondTitle,
                             std::vector<ComparedValue> compared)
    : Form("frmComparison"),
      lblCounts(*this, this, "lblCounts"),
      chkDiffering(*this, this, "chkDiffering", "&Only what differs"),
      tblSettings(*this, this, "tblSettings", {"Setting", firstTitle, secondTitle, "Compared"},
                  markColumn),
      cmdClose(*this, this, "cmdClose", "Close"),
      values(std::move(compared)) {
  Caption = "Comparison";
  const auto same = std::ranges::count(values, true, &ComparedValue::Same);
  const std::size_t differing = values.size() - static_cast<std::size_t>(same);
  lblCounts.Text = Counts(differing, values.size());
  chkDiffering.Enabled = differing > 0 && same > 0;
  chkDiffering.Checked = differing > 0;
  chkDiffering.OnClick = [this] { ShowRows(); };
  cmdClose.OnClick = [this] { Unload(); };
  ShowRows();
  tblSettings.SetFocus();
}

void frmComparison::ShowRows() {
  std::vector<TableRow> rows;
  for (const ComparedValue& value : values) {
    if (!value.Same || !chkDiffering.Checked()) rows.push_back(RowOf(value));
  }
  tblSettings.Show(std::move(rows));
}

}  // namespace quillmark
