#include "history/row_filter.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "catalogue/same_value.h"
#include "config/config_values.h"
#include "history/radio_copy.h"

namespace quillmark {

namespace {

constexpr const char* howToEnd = " Click here to show all.";

// A row that shows what the radio holds. The map's never does.
bool ShowsValue(const SettingRow& row) {
  return row.Shown() && row.What.Id != SettingId::XMAP && IsValue(row.What, row.Text());
}

}  // namespace

RowFilter::RowFilter(frmOrvalent& window, const CopyStore& copies, const Desktop& machine)
    : main(window), store(copies), desktop(machine) {}

void RowFilter::Wire() {
  main.mnuFilterFactory.OnClick = [this] { Choose(Kind::Factory); };
  main.mnuFilterCopy.OnClick = [this] { Choose(Kind::Copy); };
}

// The entry of a filter that is on ends it.
void RowFilter::Choose(Kind next) {
  kind = kind == next ? Kind::None : next;
  main.mnuFilterFactory.Checked = kind == Kind::Factory;
  main.mnuFilterCopy.Checked = kind == Kind::Copy;
  Apply();
  if (kind != Kind::None) ShowFirstTab();
}

void RowFilter::Apply() {
  if (kind == Kind::None) {
    for (SettingRow& row : main.Rows) row.LeaveOut(false);
    ShowCounts(nullptr);
    return main.Filtered.Drop();
  }
  const Outcome outcome = kind == Kind::Factory ? ChangedFromFactory() : ChangedSinceCopy();
  for (SettingRow& row : main.Rows) row.LeaveOut(!outcome.Shown.contains(row.What.Id));
  ShowCounts(&outcome.Shown);
  main.Filtered.Tell(outcome.Sentence + howToEnd, [this] { Choose(kind); });
}

RowFilter::Outcome RowFilter::ChangedFromFactory() const {
  Outcome outcome;
  for (const SettingRow& row : main.Rows) {
    const char* factory = row.What.Value.Factory;
    if (factory == nullptr || !ShowsValue(row)) continue;
    if (!SameValue(row.What, row.Text(), factory)) outcome.Shown.insert(row.What.Id);
  }
  outcome.Sentence = "Only settings changed from factory are shown (" +
                     std::to_string(outcome.Shown.size()) + ").";
  return outcome;
}

RowFilter::Outcome RowFilter::ChangedSinceCopy() const {
  const std::string folder = FolderName(main.At(SettingId::SerialNumber).Text());
  if (folder.empty()) return {{}, "There is no copy to compare with: no radio has been read."};
  std::vector<std::filesystem::path> newestFirst = store.FilesOf(folder);
  std::ranges::reverse(newestFirst);
  for (const auto& file : newestFirst) {
    const KeptCopy kept = ReadCopy(file);
    if (kept.State != CopyState::Sound) continue;
    auto changed = ChangedSince(kept.Copy);
    if (changed.empty()) continue;
    std::string sentence = "Only settings changed since the copy of " + TimeOf(file) +
                           " are shown (" + std::to_string(changed.size()) + ").";
    return {std::move(changed), std::move(sentence)};
  }
  return {{}, "No copy of this radio differs from what is shown."};
}

std::set<SettingId> RowFilter::ChangedSince(const RadioCopy& copy) const {
  RadioTexts texts;
  for (const SettingRow& row : main.Rows) {
    if (ShowsValue(row)) texts[row.What.Id] = row.Text();
  }
  std::set<SettingId> changed;
  const ConfigValues now = ValuesOf(CopyOf(main.Settings, texts).Lines);
  for (const ComparedValue& value : CompareValues(now, ValuesOf(copy.Lines))) {
    const bool copied = !value.Second.empty() || copy.Complete;
    if (!value.Same && copied && texts.contains(value.What->Id)) changed.insert(value.What->Id);
  }
  return changed;
}

std::string RowFilter::TimeOf(const std::filesystem::path& copy) const {
  const auto utc = TimeOfName(copy.stem().string());
  return utc ? desktop.DateAndTime(*utc) : "an unknown time";
}

void RowFilter::ShowCounts(const std::set<SettingId>* shown) {
  std::vector<int> counts(TabCount);
  if (shown != nullptr) {
    for (const SettingId id : *shown) {
      ++counts[static_cast<std::size_t>(main.At(id).What.View.On)];
    }
  }
  main.SettingsTab.Counts = std::vector<int>(counts.begin() + FirstTab, counts.end());
}

// The view with the tabs, at the first one that has something left. A long run keeps its view.
void RowFilter::ShowFirstTab() {
  if (!main.AdvancedShown) main.ButtonAdv.Click();
  const auto& counts = main.SettingsTab.Counts();
  const auto first = std::ranges::find_if(counts, [](int count) { return count > 0; });
  if (first == counts.end()) return;
  main.SettingsTab.UserSelect(static_cast<int>(first - counts.begin()) + 1);
}

}  // namespace quillmark
