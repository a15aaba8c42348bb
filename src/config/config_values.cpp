#include "config/config_values.h"

#include <set>
#include <string_view>

#include "catalogue/same_value.h"
#include "catalogue/settings.h"
#include "text/text.h"

namespace quillmark {

namespace {

// A value of two parts: lines may set one of them alone, and the other stays as it was sent before.
struct TwoParts {
  std::string Number;  // a rate, an id
  std::string Behind;  // a format, ON or OFF

  // Blanks stand between the parts.
  void Take(std::string_view value) {
    for (value = Trim(value); !value.empty(); value = Trim(value)) {
      const std::string_view part = value.substr(0, value.find(' '));
      const bool number = part.find_first_not_of("0123456789") == std::string_view::npos;
      (number ? Number : Behind) = part;
      value.remove_prefix(part.size());
    }
  }
};

bool HasTwoParts(const Setting& setting) {
  return setting.Value.Form == ValueForm::Rate || setting.Value.Form == ValueForm::Switched;
}

std::string LineOf(const ConfigValues& values, SettingId id) {
  const auto found = values.find(id);
  return found == values.end() ? "" : found->second;
}

}  // namespace

ConfigValues ValuesOf(const std::vector<SentLine>& sent) {
  ConfigValues values;
  std::map<SettingId, TwoParts> parts;
  for (const SentLine& line : sent) {
    const Setting& setting = *line.Sets;
    values[setting.Id] = line.Text;
    if (!HasTwoParts(setting)) continue;
    TwoParts& both = parts[setting.Id];
    both.Take(std::string_view(line.Text).substr(std::string_view(setting.Word).size()));
    values[setting.Id] = Upper(setting.Word) + " " + both.Number + " " + both.Behind;
  }
  return values;
}

ConfigValues ValuesOf(const std::vector<std::string>& lines) {
  return ValuesOf(SentLines(lines, {}, {}));
}

std::string ShownValue(const Setting& setting, const std::string& line) {
  if (setting.Value.Form != ValueForm::Text) return line;
  return line.substr(std::string_view(setting.Word).size() + 1);
}

std::string Subject(const Setting& setting) {
  const std::string_view caption = setting.Restored->Caption;
  return std::string(caption.substr(caption.find(' ') + 1));
}

std::vector<ComparedValue> CompareValues(const ConfigValues& first, const ConfigValues& second) {
  std::set<SettingId> ids;
  for (const auto& [id, line] : first) ids.insert(id);
  for (const auto& [id, line] : second) ids.insert(id);
  std::vector<ComparedValue> rows;
  for (const SettingId id : ids) {
    const Setting& setting = SettingOf(id);
    ComparedValue row{&setting, LineOf(first, id), LineOf(second, id), false};
    row.Same = !row.First.empty() && !row.Second.empty() &&
               SameValue(setting, ShownValue(setting, row.First), ShownValue(setting, row.Second));
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace quillmark
