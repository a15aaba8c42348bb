#include "runs/sent_settings.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string_view>

#include "text/text.h"

namespace quillmark {

namespace {

// What stands behind the setting's word; nothing for a line that sets nothing.
std::optional<std::string> ValueBehind(const Setting& setting, std::string_view line) {
  const std::string_view word = setting.Word;
  if (!setting.Restored || line.size() <= word.size()) return std::nullopt;
  if (line[word.size()] != ' ' || FindAnyCase(line, word) != 1) return std::nullopt;
  std::string value(Trim(line.substr(word.size())));
  const bool freeText = setting.Value.Longest.has_value();
  if (value.empty() && !freeText) return std::nullopt;
  return value;
}

bool Switches(const Setting& setting, std::string_view value) {
  return setting.Restored->Form == RestoreForm::Switched &&
         (EqualAnyCase(value, "ON") || EqualAnyCase(value, "OFF"));
}

}  // namespace

void SentSettings::Forget() {
  sent.clear();
  if (OnForgotten) OnForgotten();
}

SentValue* SentSettings::ValueOf(const std::string& line, std::string& value) {
  for (const Setting& setting : settings) {
    const auto behind = ValueBehind(setting, line);
    if (!behind) continue;
    value = *behind;
    const auto [place, isNew] = sent.try_emplace(setting.Id);
    SentSetting& row = place->second;
    row.What = &setting;
    if (isNew && ShownNow) row.Before = ShownNow(setting.Id);
    return Switches(setting, value) ? &row.Switch : &row.Value;
  }
  return nullptr;
}

void SentSettings::Plan(std::span<const std::string> lines) {
  std::string value;
  for (const std::string& line : lines) {
    if (SentValue* planned = ValueOf(line, value)) planned->Planned.push_back(value);
  }
}

void SentSettings::Said(const std::string& line) {
  if (listening == 0) return;
  std::string value;
  SentValue* said = ValueOf(line, value);
  if (said == nullptr) return;
  // A value that was not planned is the user's last word.
  const auto place = std::ranges::find(said->Planned, value);
  const auto next = place == said->Planned.end() ? place : std::next(place);
  *said = {.Planned = {next, said->Planned.end()}, .Sent = value, .Line = line};
}

bool SentSettings::Answered(const std::string& line, bool taken, const std::string& words) {
  for (auto& [id, row] : sent) {
    for (SentValue* value : {&row.Value, &row.Switch}) {
      if (value->Line != line) continue;
      value->Taken = taken;
      value->Refusal = taken ? "" : words;
      return true;
    }
  }
  return false;
}

}  // namespace quillmark
