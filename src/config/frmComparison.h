#pragma once

#include <string>
#include <vector>

#include "config/config_values.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/table.h"

namespace quillmark {

// Two configurations beside each other, a row a setting; the rows that differ alone, if the user
// wants that. Changes nothing. It may stand beside the main window, more than once:
//
//   platform.Windows.Show(std::make_shared<frmComparison>(
//       "a.txt", "b.txt", CompareValues(ValuesOf(linesOfA), ValuesOf(linesOfB))));
class frmComparison : public Form {
 public:
  // The titles tell what the two are; they may be long. Where a setting stands in one of them
  // alone, it counts as different.
  frmComparison(const std::string& firstTitle, const std::string& secondTitle,
                std::vector<ComparedValue> compared);

  Label lblCounts;
  CheckBox chkDiffering;
  Table tblSettings;
  Button cmdClose;

 private:
  void ShowRows();

  const std::vector<ComparedValue> values;
};

}  // namespace quillmark
