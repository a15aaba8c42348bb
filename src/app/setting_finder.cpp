#include "app/setting_finder.h"

#include <string>

#include "text/text.h"

namespace quillmark {

SettingFinder::SettingFinder(frmOrvalent& window) : main(window) {}

void SettingFinder::Wire() {
  main.mnuFind.OnClick = [this] { Open(); };
  main.txtFind.OnChange = [this] { Look(); };
  main.cmdFindNext.OnClick = [this] { Step(1); };
  main.cmdFindPrevious.OnClick = [this] { Step(-1); };
  main.cmdFindGo.OnClick = [this] { Go(); };
  main.cmdFindClose.OnClick = [this] { Close(); };
}

void SettingFinder::Open() {
  main.findStrip.Visible = true;
  main.txtFind.SetSelStart(0);
  main.txtFind.SetSelLength(main.txtFind.Text().size());
  main.txtFind.SetFocus();
  Look();
}

void SettingFinder::Close() {
  found.clear();
  Point();
  main.findStrip.Visible = false;
}

void SettingFinder::Look() {
  found = FindRows(main, main.txtFind.Text());
  at = 0;
  Point();
}

// Rows come and go with each read.
void SettingFinder::Step(std::ptrdiff_t by) {
  const SettingRow* last = found.empty() ? nullptr : found[at].Row;
  found = FindRows(main, main.txtFind.Text());
  at = 0;
  for (std::size_t place = 0; place < found.size(); ++place) {
    if (found[place].Row != last) continue;
    const auto count = static_cast<std::ptrdiff_t>(found.size());
    at = static_cast<std::size_t>((static_cast<std::ptrdiff_t>(place) + by + count) % count);
  }
  Point();
}

void SettingFinder::Go() {
  if (found.empty()) return;
  SettingRow& row = *found[at].Row;
  ShowTabOf(row);
  // What can't be changed now can be explained.
  const bool live = row.Reachable() && row.MousePointer() != Pointer::NoDrop;
  (live ? static_cast<Control&>(row) : row.Caption).SetFocus();
  Close();
}

void SettingFinder::Point() {
  SettingRow* const pointed = found.empty() ? nullptr : found[at].Row;
  main.lblFound.Text = "";
  if (pointed != nullptr) {
    ShowTabOf(*pointed);
    main.lblFound.Text = std::to_string(at + 1) + " of " + std::to_string(found.size()) + ": " +
                         NameAndTab(main, *pointed) +
                         (found[at].ByText ? " (in its explanation)" : "");
  } else if (!Trim(main.txtFind.Text()).empty()) {
    main.lblFound.Text = main.Filtered.Visible() ? "Not found in the settings shown" : "Not found";
  }
  // The last one in the order of the change: the row is on its tab then.
  for (SettingRow& row : main.Rows) row.Found = &row == pointed;
}

// A long run keeps the view that it has.
void SettingFinder::ShowTabOf(const SettingRow& row) {
  const auto tab = static_cast<std::size_t>(row.What.View.On);
  if (tab < FirstTab) return;
  if (!main.AdvancedShown) main.ButtonAdv.Click();
  main.SettingsTab.UserSelect(static_cast<int>(tab - FirstTab) + 1);
}

}  // namespace quillmark
