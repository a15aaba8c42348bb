#include "cli/settings_table.h"

#include <algorithm>
#include <vector>

#include "catalogue/same_value.h"
#include "cli/utf8.h"

namespace quillmark {

namespace {

void AddTab(std::string& table, const std::string& title, const frmOrvalent& main, Tab tab) {
  constexpr std::size_t labelColumn = 26;
  std::vector<const SettingRow*> rows;
  for (const SettingRow& row : main.Rows) {
    if (row.What.View.On == tab && row.Visible()) rows.push_back(&row);
  }
  std::ranges::stable_sort(rows, {}, [](const SettingRow* row) { return row->Top(); });
  table += (table.empty() ? "" : "\n") + title + "\n";
  for (const SettingRow* row : rows) {
    std::string label = row->Caption.Text();
    label.resize(std::max(labelColumn, label.size() + 1), ' ');
    table += "  " + label + OnOneRow(row->Text()) + "\n";
  }
}

}  // namespace

std::string SettingsTable(const frmOrvalent& main) {
  std::string table;
  AddTab(table, main.InfoFrame.Text(), main, Tab::General);
  for (std::size_t tab = FirstTab; tab < TabCount; ++tab) {
    AddTab(table, main.SettingsTab.Tabs[tab - FirstTab], main, static_cast<Tab>(tab));
  }
  return table;
}

std::optional<std::string> ValueIn(const Setting& setting, const std::string& reply) {
  if (!IsValue(setting, reply)) return std::nullopt;
  std::string value;
  for (const std::string& part : ValueParts(setting, reply)) {
    value += (value.empty() ? "" : " ") + part;
  }
  return value;
}

std::optional<bool> ChangedFromFactory(const Setting& setting, const std::string& reply) {
  const char* const factory = setting.Value.Factory;
  if (factory == nullptr || !IsValue(setting, reply)) return std::nullopt;
  return !SameValue(setting, reply, factory);
}

}  // namespace quillmark
