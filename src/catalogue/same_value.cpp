#include "catalogue/same_value.h"

#include <algorithm>
#include <string>
#include <vector>

#include "catalogue/settings.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::string_view none = "n/a";

// What radio and console say where a setting has no value.
constexpr std::string_view noValues[] = {none, "NOT AVAILABLE", "MASTER ONLY", "PROGRAMMABLE ONLY",
                                         "SELECTED OPTION"};

bool IsFreeText(const Setting& setting) { return *setting.Reply == '\0'; }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsWordPart(char c) { return IsDigit(c) || (c >= 'A' && c <= 'Z'); }

// Without the longest of the setting's words that stands in front; `text` is in capitals.
std::string_view WithoutWord(const Setting& setting, std::string_view text) {
  std::size_t length = 0;
  for (const std::string& word : {FileKey(setting), Upper(setting.Word), Upper(setting.Reply)}) {
    const bool whole =
        text.size() == word.size() || (text.size() > word.size() && !IsWordPart(text[word.size()]));
    if (whole && text.starts_with(word)) length = std::max(length, word.size());
  }
  return text.substr(length);
}

std::vector<std::string> Parts(std::string_view text) {
  constexpr std::string_view between = " \t:,()";
  std::vector<std::string> parts;
  while (true) {
    const std::size_t begin = text.find_first_not_of(between);
    if (begin == std::string_view::npos) return parts;
    text.remove_prefix(begin);
    const std::size_t end = std::min(text.find_first_of(between), text.size());
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
  }
}

// "30", "DBM" and "30DBM" become "30".
void DropUnit(std::vector<std::string>& parts, const std::string& unit) {
  if (unit.empty() || parts.empty() || !parts.back().ends_with(unit)) return;
  std::string& last = parts.back();
  if (last.size() > unit.size() && !IsDigit(last[last.size() - unit.size() - 1])) return;
  last.erase(last.size() - unit.size());
  if (last.empty()) parts.pop_back();
}

std::string WithoutNoughts(const std::string& number) {
  const std::size_t sign = number.starts_with('-') ? 1 : 0;
  std::size_t first = sign;
  while (first + 1 < number.size() && number[first] == '0' && IsWordPart(number[first + 1])) {
    ++first;
  }
  return number.substr(0, sign) + number.substr(first);
}

// What the value consists of, in one wording.
std::vector<std::string> Meaning(const Setting& setting, std::string_view text) {
  std::vector<std::string> parts = Parts(WithoutWord(setting, Upper(Trim(text))));
  DropUnit(parts, Upper(setting.Value.Unit));
  // The digits of a mask are one number, however they are grouped.
  if (setting.Restored && setting.Restored->Form == RestoreForm::AlarmMask) {
    std::string digits;
    for (const std::string& part : parts) digits += part;
    parts = {digits};
  }
  std::ranges::transform(parts, parts.begin(), WithoutNoughts);
  return parts;
}

}  // namespace

bool IsValue(const Setting& setting, std::string_view text) {
  if (IsFreeText(setting)) return text != none;
  return !text.empty() && std::ranges::none_of(noValues, [text](std::string_view each) {
    return Contains(text, each);
  });
}

bool MeansTheSame(const Setting& setting, std::string_view one, std::string_view other) {
  if (IsFreeText(setting)) return one == other;
  return Meaning(setting, one) == Meaning(setting, other);
}

}  // namespace quillmark
