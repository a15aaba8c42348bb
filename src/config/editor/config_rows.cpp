#include "config/editor/config_rows.h"

#include <algorithm>
#include <map>
#include <string>

#include "catalogue/bounds.h"
#include "catalogue/settings.h"
#include "config/config_lines.h"
#include "config/config_values.h"

namespace quillmark {

namespace {

// A line of a file holds the word as well.
constexpr std::size_t longestValue = 1000;

double TopOf(const Setting* setting) { return setting->Restored->Top.value_or(setting->View.Top); }

std::string UsualHint(const Setting& setting, const Revision& revision) {
  const std::string taken = TakenValues(setting, revision);
  const char* factory = setting.Value.Factory;
  return factory == nullptr ? taken : taken + "; factory " + factory;
}

std::string Counted(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace

std::vector<const Setting*> SettingsOfPage(std::size_t page) {
  std::vector<const Setting*> settings;
  for (const Setting& setting : AllSettings()) {
    const bool here = static_cast<std::size_t>(setting.View.On) == page;
    if (here && setting.Restored) settings.push_back(&setting);
  }
  std::ranges::stable_sort(settings, {}, TopOf);
  return settings;
}

ConfigRow::ConfigRow(Form& form, Frame& frame, const Setting& setting)
    : What(setting),
      Caption(form, &frame, setting.View.Label, Subject(setting)),
      Value(form, &frame, setting.Name),
      Hint(form, &frame, std::string(setting.Name) + HintEnding) {
  Value.MaxLength = longestValue;
}

void ConfigRow::Show(bool shown) {
  for (Control* control : std::initializer_list<Control*>{&Caption, &Value, &Hint}) {
    control->Visible = shown;
  }
}

void ConfigRow::ShowVerdict(const Verdict& verdict, const Revision& revision) {
  Value.Problem = verdict.Sentence();
  Hint.Text = verdict.Fine() ? UsualHint(What, revision) : "! " + verdict.Wrong;
  Value.ToolTip = HintOf(What, revision);
}

ConfigRows::ConfigRows(Form& form)
    : TabStrip(form, &form, "TabStrip",
               {"General", "Radio Settings 1", "Radio Settings 2", "Network Settings 1",
                "Network Settings 2", "Store and Forward Settings", "Network Wide Diagnostics"}),
      lblMarks(form, &form, "lblMarks") {
  for (std::size_t page = 0; page < TabCount; ++page) {
    Frame& frame = Page.emplace_back(form, &form, "Page_" + std::to_string(page));
    for (const Setting* setting : SettingsOfPage(page)) Rows.emplace_back(form, frame, *setting);
  }
  TabStrip.OnClick = [this] {
    Page.at(static_cast<std::size_t>(TabStrip.SelectedIndex() - 1)).BringToFront();
  };
  Page.front().BringToFront();
}

void ConfigRows::ShowValues(const EditedConfig& config) {
  for (ConfigRow& row : Rows) {
    const std::string value = config.Value(row.What);
    row.Value.Text = value;
    row.Show(!value.empty() || row.What.Revisions.HoldsIfUnknown(config.FileRevision()));
  }
  Judge(config);
}

void ConfigRows::Judge(const EditedConfig& config) {
  std::map<SettingId, Verdict> wrong;
  for (const SentLine& line : config.Judged()) {
    if (!line.What.Fine()) wrong.emplace(line.Sets->Id, line.What);
  }
  std::vector<int> onTabs(TabCount);
  for (ConfigRow& row : Rows) {
    const auto found = wrong.find(row.What.Id);
    row.ShowVerdict(found == wrong.end() ? Verdict() : found->second, config.FileRevision());
    if (found != wrong.end()) ++onTabs[static_cast<std::size_t>(row.What.View.On)];
  }
  TabStrip.Counts = onTabs;
  ShowCounts(config);
}

void ConfigRows::ShowCounts(const EditedConfig& config) {
  const auto held =
      std::ranges::count_if(Rows, [](const ConfigRow& row) { return !row.Value.Text().empty(); });
  const auto marked = std::ranges::count_if(
      Rows, [](const ConfigRow& row) { return !row.Value.Problem().empty(); });
  std::string text = Counted(static_cast<std::size_t>(held), "setting", "settings") + ", " +
                     (marked == 0 ? "none marked"
                                  : Counted(static_cast<std::size_t>(marked),
                                            "marked with ! (radios do not take it)",
                                            "marked with ! (radios do not take them)"));
  const std::size_t lines = config.Lines().size();
  if (lines > MostConfigLines) {
    text += ". " + std::to_string(lines) + " lines: no radio can be programmed from more than " +
            std::to_string(MostConfigLines);
  }
  lblMarks.Text = text + ".";
}

}  // namespace quillmark
