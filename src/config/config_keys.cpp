#include "config/config_keys.h"

#include <algorithm>
#include <string>

#include "config/config_lines.h"
#include "text/text.h"

namespace quillmark {

namespace {

// Whether the line holds a longer key that holds this one.
bool HoldsLonger(std::string_view line, const std::string& key, std::span<const Setting> settings) {
  return std::ranges::any_of(settings, [&](const Setting& each) {
    const std::string other = FileKey(each);
    return other != key && Holds(other, key) && Holds(line, other);
  });
}

}  // namespace

std::optional<SettingId> SettingOfLine(std::string_view line, std::span<const Setting> settings) {
  // It names options that share words with settings, as in "LPM OFF".
  if (line.starts_with("Diagnostics")) return std::nullopt;
  for (const Setting& setting : settings) {
    const std::string key = FileKey(setting);
    if (key.empty() || !Holds(line, key)) continue;
    if (!HoldsLonger(line, key, settings)) return setting.Id;
  }
  return std::nullopt;
}

bool IsConfiguration(const std::vector<std::string>& lines) {
  const auto isSetting = [](const std::string& line) { return SettingOfLine(line).has_value(); };
  return IsSavedConfig(lines) || std::ranges::any_of(lines, isSetting);
}

}  // namespace quillmark
