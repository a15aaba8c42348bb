#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/sim_radio_table.h"
#include "sim/sim_words.h"

// The values that the simulated radio takes for its settings.

namespace quillmark::sim {

namespace {

constexpr int mostSkippedZones = 4;

using Checked = std::optional<std::string>;

Checked OneOf(std::string_view choices, std::string_view typed) {
  if (typed.empty()) return std::nullopt;
  for (const std::string_view choice : Pieces(choices, '|')) {
    if (SameWord(choice, typed)) return std::string(choice);
  }
  return std::nullopt;
}

Checked InRange(const RadioSetting& row, std::string_view typed) {
  const auto number = WholeNumber(typed);
  if (!number || *number < row.Least || *number > row.Most) return std::nullopt;
  return std::to_string(*number);
}

Checked CheckedNumber(const RadioSetting& row, const std::string& typed) {
  if (auto word = OneOf(row.Choices, typed)) return word;
  if (row.Unit.empty()) return InRange(row, typed);
  std::string_view digits = typed;
  if (digits.size() > row.Unit.size() &&
      SameWord(digits.substr(digits.size() - row.Unit.size()), row.Unit)) {
    digits = Trimmed(digits.substr(0, digits.size() - row.Unit.size()));
  }
  const auto number = InRange(row, digits);
  if (!number) return std::nullopt;
  return *number + " " + std::string(row.Unit);
}

Checked CheckedUnit(const RadioSetting& row, const std::string& typed) {
  const bool digits = typed.find_first_not_of("0123456789") == std::string::npos;
  if (digits && typed.size() == 4) return typed;
  return InRange(row, typed);
}

bool IsFormat(std::string_view text) {
  constexpr std::string_view allowed[] = {"78", "NOE", "12"};
  if (text.size() != 3) return false;
  for (std::size_t i = 0; i < 3; ++i) {
    if (allowed[i].find(text[i]) == std::string_view::npos) return false;
  }
  return true;
}

Checked CheckedDataRate(const RadioSetting& row, std::string_view current,
                        const std::string& typed) {
  std::vector<std::string> parts = Tokens(current);
  std::vector<std::string> given = Tokens(Raised(typed));
  if (given.empty() || given.size() > 2) return std::nullopt;
  if (IsFormat(given.back())) {
    parts[1] = given.back();
    given.pop_back();
  }
  if (given.size() > 1) return std::nullopt;
  if (!given.empty()) {
    const auto rate = OneOf(row.Choices, given.front());
    if (!rate) return std::nullopt;
    parts[0] = *rate;
  }
  return parts[0] + " " + parts[1];
}

// The typed digits without blanks, in capitals; nothing if one is no hex digit.
Checked HexDigits(const std::string& typed) {
  std::string digits;
  for (const char c : Raised(typed)) {
    if (c == ' ') continue;
    if (std::string_view("0123456789ABCDEF").find(c) == std::string_view::npos) {
      return std::nullopt;
    }
    digits += c;
  }
  return digits;
}

Checked CheckedMask(const std::string& typed) {
  const auto digits = HexDigits(typed);
  if (!digits || digits->size() != 8) return std::nullopt;
  return digits->substr(0, 4) + " " + digits->substr(4);
}

Checked CheckedMap(const std::string& typed) {
  const auto digits = HexDigits(typed);
  if (!digits || digits->empty() || digits->size() > 8) return std::nullopt;
  return std::string(8 - digits->size(), '0') + *digits;
}

Checked CheckedZones(const RadioSetting& row, const std::string& typed) {
  if (auto word = OneOf(row.Choices, typed)) return word;
  std::string listed;
  for (const char zone : std::string_view("12345678")) {
    if (typed.find(zone) == std::string::npos) continue;
    if (!listed.empty()) listed += ',';
    listed += zone;
  }
  const bool others = typed.find_first_not_of("12345678, ") != std::string::npos;
  const auto digits = std::count_if(typed.begin(), typed.end(), [](char c) { return c >= '1'; });
  if (others || listed.empty() || digits > mostSkippedZones) return std::nullopt;
  return listed;
}

// "(ON)" for ON or (ON), "(OFF)" likewise; nothing for another word.
Checked SwitchState(std::string_view word) {
  for (const std::string_view state : {"(ON)", "(OFF)"}) {
    if (word == state || word == state.substr(1, state.size() - 2)) return std::string(state);
  }
  return std::nullopt;
}

Checked CheckedSwitch(const RadioSetting& row, std::string_view current, const std::string& typed) {
  std::vector<std::string> parts = Tokens(current);
  std::vector<std::string> given = Tokens(Raised(typed));
  if (given.empty() || given.size() > 2) return std::nullopt;
  if (const auto state = SwitchState(given.back())) {
    parts[1] = *state;
    given.pop_back();
  }
  if (given.size() > 1) return std::nullopt;
  if (!given.empty()) {
    const std::string& part = given.front();
    const auto number = row.Choices.empty() ? InRange(row, part) : OneOf(row.Choices, part);
    if (!number) return std::nullopt;
    parts[0] = *number;
  }
  return parts[0] + " " + parts[1];
}

}  // namespace

Checked CheckedValue(const RadioSetting& row, std::string_view current, std::string_view typed) {
  const std::string squeezed = Squeezed(typed);
  switch (row.Value) {
    case Shape::Number:
      return CheckedNumber(row, squeezed);
    case Shape::Choice:
      return OneOf(row.Choices, squeezed);
    case Shape::Text:
      if (typed.size() > static_cast<std::size_t>(row.Most)) return std::nullopt;
      return std::string(typed);
    case Shape::Unit:
      return CheckedUnit(row, squeezed);
    case Shape::DataRate:
      return CheckedDataRate(row, current, squeezed);
    case Shape::Mask:
      return CheckedMask(squeezed);
    case Shape::Map:
      return CheckedMap(squeezed);
    case Shape::Zones:
      return CheckedZones(row, squeezed);
    case Shape::Switched:
      return CheckedSwitch(row, current, squeezed);
  }
  return std::nullopt;
}

}  // namespace quillmark::sim
