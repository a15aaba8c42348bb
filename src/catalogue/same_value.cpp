#include "catalogue/same_value.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "catalogue/settings.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::size_t mapDigits = 8;

bool IsFreeText(const Setting& setting) { return setting.Value.Longest.has_value(); }

bool BeginsWithWord(std::string_view text, std::string_view word) {
  if (word.empty() || FindAnyCase(text, word) != 1) return false;
  return text.size() == word.size() || word.back() == ':' || text[word.size()] == ' ' ||
         text[word.size()] == ':';
}

// The longest word that stands in front goes: that of the reply, of a file, or of the command.
std::string_view WithoutWord(const Setting& setting, std::string_view text) {
  std::size_t length = 0;
  for (const std::string& word :
       {std::string(setting.Reply), FileKey(setting), std::string(setting.Word)}) {
    if (BeginsWithWord(text, word)) length = std::max(length, word.size());
  }
  return text.substr(length);
}

std::vector<std::string> Pieces(std::string_view text) {
  std::vector<std::string> pieces(1);
  for (const char c : Upper(text)) {
    if (c == ' ' || c == ',') {
      if (!pieces.back().empty()) pieces.emplace_back();
    } else if (c != '(' && c != ')' && c != ':') {
      pieces.back() += c;
    }
  }
  if (pieces.back().empty()) pieces.pop_back();
  return pieces;
}

// "030" as "30"; what is no whole number stays.
std::string PlainNumber(const std::string& piece) {
  constexpr double largest = 1e9;
  const auto number = NumericValue(piece);
  if (!number || std::floor(*number) != *number || std::abs(*number) > largest) return piece;
  return std::to_string(static_cast<long>(*number));
}

void DropUnit(std::vector<std::string>& pieces, const std::string& unit) {
  if (unit.empty()) return;
  for (std::string& piece : pieces) {
    if (piece.ends_with(unit)) piece.resize(piece.size() - unit.size());
  }
  std::erase(pieces, "");
}

std::vector<std::string> Joined(const std::vector<std::string>& pieces, std::size_t digits) {
  std::string all;
  for (const std::string& piece : pieces) all += piece;
  if (!all.empty() && all.size() < digits) all.insert(0, digits - all.size(), '0');
  return all.empty() ? std::vector<std::string>() : std::vector<std::string>{all};
}

// The zones one by one, in their order; a word such as NONE stays.
std::vector<std::string> Zones(const std::vector<std::string>& pieces) {
  std::vector<std::string> zones;
  for (const std::string& piece : pieces) {
    if (!NumericValue(piece)) return pieces;
    zones.push_back(piece);
  }
  std::sort(zones.begin(), zones.end());
  return zones;
}

// Lines may set one of its parts alone.
bool HasSeveralParts(SettingId id) {
  return id == SettingId::BaudRate || id == SettingId::DLINK || id == SettingId::SoftRTU;
}

}  // namespace

std::vector<std::string> ValueParts(const Setting& setting, std::string_view text) {
  text = Trim(text);
  if (IsFreeText(setting)) {
    return text.empty() ? std::vector<std::string>() : std::vector{std::string(text)};
  }
  std::vector<std::string> pieces = Pieces(WithoutWord(setting, text));
  if (setting.Id == SettingId::AlarmMask) return Joined(pieces, 0);
  if (setting.Id == SettingId::XMAP) return Joined(pieces, mapDigits);
  if (setting.Id == SettingId::SkippedZones) return Zones(pieces);
  DropUnit(pieces, Upper(setting.Value.Unit));
  for (std::string& piece : pieces) piece = PlainNumber(piece);
  // A radio may print a unit that the catalogue does not have.
  const bool number = setting.Value.Least && !pieces.empty() && NumericValue(pieces.front());
  if (number && !HasSeveralParts(setting.Id)) pieces.resize(1);
  return pieces;
}

bool SameValue(const Setting& setting, std::string_view a, std::string_view b) {
  return ValueParts(setting, a) == ValueParts(setting, b);
}

bool HasValueSent(const Setting& setting, std::string_view shown, std::string_view sent) {
  if (!HasSeveralParts(setting.Id)) return SameValue(setting, shown, sent);
  const std::vector<std::string> all = ValueParts(setting, shown);
  return std::ranges::all_of(ValueParts(setting, sent), [&all](const std::string& part) {
    return std::ranges::find(all, part) != all.end();
  });
}

bool IsValue(const Setting& setting, std::string_view text) {
  return IsFreeText(setting) ? text != "n/a" : !IsNoValue(text);
}

bool IsNoValue(std::string_view text) {
  constexpr std::array<std::string_view, 5> wordings{"n/a", "NOT AVAILABLE", "SELECTED OPTION",
                                                     "PROGRAMMABLE ONLY", "MASTER ONLY"};
  return Trim(text).empty() || std::ranges::any_of(wordings, [text](std::string_view words) {
           return Contains(text, words);
         });
}

}  // namespace quillmark
