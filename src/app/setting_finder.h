#pragma once

#include <cstddef>
#include <vector>

#include "app/frmOrvalent.h"
#include "app/setting_search.h"

namespace quillmark {

// Finds settings in the main window: shows each one that fits what is typed, on its tab, and goes
// to its row. `main` outlives it.
class SettingFinder {
 public:
  explicit SettingFinder(frmOrvalent& main);

  // Joins the menu entry and the bar to this.
  void Wire();

 private:
  void Open();
  void Close();
  void Look();
  // So many further, round the end.
  void Step(std::ptrdiff_t by);
  void Go();
  void Point();
  void ShowTabOf(const SettingRow& row);

  frmOrvalent& main;
  std::vector<FoundRow> found;
  std::size_t at = 0;
};

}  // namespace quillmark
