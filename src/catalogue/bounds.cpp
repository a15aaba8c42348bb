#include "catalogue/bounds.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "catalogue/settings.h"
#include "text/hex.h"
#include "text/text.h"

namespace quillmark {

namespace {

std::vector<std::string> Pieces(std::string_view text, char between) {
  std::vector<std::string> pieces;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(between), text.size());
    if (end > 0) pieces.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return pieces;
}

// A few blanks count as one, those at the ends not at all.
std::string Squeezed(std::string_view text) {
  std::string squeezed;
  for (const std::string& piece : Pieces(text, ' ')) {
    squeezed += (squeezed.empty() ? "" : " ") + piece;
  }
  return squeezed;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::optional<int> WholeNumber(std::string_view text) {
  constexpr std::size_t mostDigits = 9;
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || text.size() > mostDigits || !std::ranges::all_of(text, IsDigit)) {
    return std::nullopt;
  }
  int number = 0;
  for (const char digit : text) number = number * 10 + (digit - '0');
  return negative ? -number : number;
}

// --- Whether a value is taken ---

int MostOf(const SettingValue& value, const Revision& revision) {
  return value.MostBelow200 && !revision.AtLeast(200) ? *value.MostBelow200 : *value.Most;
}

// A value of the setting as this revision takes it.
class Taken {
 public:
  Taken(const SettingValue& itsValue, const Revision& itsRevision)
      : value(itsValue), revision(itsRevision) {}

  bool Takes(std::string_view text) const;

 private:
  bool Word(std::string_view text) const {
    return std::ranges::any_of(Pieces(value.Words, '|'), [text](const std::string& word) {
      return EqualAnyCase(word, text);
    });
  }
  bool InRange(std::string_view text) const {
    const auto number = WholeNumber(text);
    return number && *number >= *value.Least && *number <= MostOf(value, revision);
  }
  bool Plain(std::string_view text) const {
    if (Word(text)) return true;
    const std::string_view unit = value.Unit;
    if (!unit.empty() && EndsWithAnyCase(text, unit)) {
      text = Trim(text.substr(0, text.size() - unit.size()));
    }
    return value.Least && InRange(text);
  }
  bool Unit(std::string_view text) const {
    const bool allDigits = text.size() == static_cast<std::size_t>(*value.Digits) &&
                           std::ranges::all_of(text, IsDigit);
    return allDigits || InRange(text);
  }
  bool Format(std::string_view text) const {
    const std::vector<std::string> allowed = Pieces(value.Format, '|');
    return std::ranges::equal(Upper(text), allowed, [](char c, const std::string& these) {
      return Holds(these, std::string(1, c));
    });
  }
  static bool Switch(std::string_view text) {
    constexpr std::string_view words[] = {"ON", "OFF", "(ON)", "(OFF)"};
    return std::ranges::any_of(words, [text](auto word) { return EqualAnyCase(word, text); });
  }
  // A value, what may stand behind it, or both.
  template <class Behind>
  bool Two(std::string_view text, Behind behind) const {
    std::vector<std::string> parts = Pieces(text, ' ');
    if (parts.empty() || parts.size() > 2) return false;
    if (behind(parts.back())) parts.pop_back();
    return parts.empty() || (parts.size() == 1 && Plain(parts.front()));
  }
  // How many hexadecimal digits, if there is nothing else.
  static std::optional<int> HexDigits(std::string_view text) {
    int digits = 0;
    for (const char c : text) {
      if (c == ' ') continue;
      if (!HexDigit(c)) return std::nullopt;
      ++digits;
    }
    return digits;
  }
  bool InMap(std::optional<int> digits) const {
    return digits && *digits >= 1 && *digits <= *value.Digits;
  }
  bool Zones(std::string_view text) const {
    if (Word(text)) return true;
    int digits = 0;
    for (const char c : text) {
      if (c == ' ' || c == ',') continue;
      if (!InRange(std::string(1, c))) return false;
      ++digits;
    }
    return digits > 0 && digits <= *value.Digits;
  }

  const SettingValue& value;
  const Revision& revision;
};

bool Taken::Takes(std::string_view text) const {
  if (value.Form == ValueForm::Text) return text.size() <= static_cast<std::size_t>(*value.Longest);
  const std::string squeezed = Squeezed(text);
  switch (value.Form) {
    case ValueForm::Unit:
      return Unit(squeezed);
    case ValueForm::Rate:
      return Two(squeezed, [this](const std::string& part) { return Format(part); });
    case ValueForm::Switched:
      return Two(squeezed, [](const std::string& part) { return Switch(part); });
    case ValueForm::Mask:
      return HexDigits(squeezed) == value.Digits;
    case ValueForm::Map:
      return InMap(HexDigits(squeezed));
    case ValueForm::Zones:
      return Zones(squeezed);
    case ValueForm::Plain:
    case ValueForm::Text:
      break;
  }
  return Plain(squeezed);
}

// --- Words for it ---

// "7, 28 or 29"
std::string Choice(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 == words.size() ? " or " : ", ";
    text += words[i];
  }
  return text;
}

std::string WithUnit(const SettingValue& value, const std::string& number) {
  const std::string unit = *value.Unit != '\0' ? value.Unit : value.CountsIn;
  return unit.empty() ? number : number + " " + unit;
}

std::string Range(const SettingValue& value, const Revision& revision) {
  return std::to_string(*value.Least) + " to " + std::to_string(MostOf(value, revision));
}

std::string PlainWords(const SettingValue& value, const Revision& revision) {
  const std::string words = Choice(Pieces(value.Words, '|'));
  if (!value.Least) return WithUnit(value, words);
  return WithUnit(value, Range(value, revision)) + (words.empty() ? "" : " or " + words);
}

std::string TakenBy(RevisionGate gate) {
  const auto version = [](double revision) {
    const std::string digits = std::to_string(static_cast<int>(revision));
    return digits.substr(0, 1) + "." + digits.substr(1, 1) + "." + digits.substr(2);
  };
  return gate.From > 0 ? "radios from " + version(gate.From) + " on have it"
                       : "radios below " + version(gate.Below) + " have it";
}

constexpr const char* masterAlone = "only a master takes it";

// What only a master takes, only a master's file holds.
bool IsMasters(const Setting& setting) { return setting.Saved && setting.Saved->MasterOnly; }

bool IsModeOfNoMaster(std::string_view modeText) {
  return FindAnyCase(modeText, "MODE ") == 1 && !IsOneOf(Modes::Master, modeText);
}

std::string Shortened(std::string_view text) {
  constexpr std::size_t longest = 40;
  if (text.size() <= longest) return std::string(text);
  return std::string(text.substr(0, longest)) + "...";
}

std::string Capital(const std::string& text) {
  return text.empty() ? "" : Upper(text.substr(0, 1)) + text.substr(1);
}

}  // namespace

std::string TakenValues(const Setting& setting, const Revision& revision) {
  const SettingValue& value = setting.Value;
  const auto digits = [&value] { return std::to_string(*value.Digits); };
  if (!setting.Restored) return {};
  switch (value.Form) {
    case ValueForm::Text:
      return "up to " + std::to_string(*value.Longest) + " characters";
    case ValueForm::Unit:
      return Range(value, revision) + " or " + digits() + " digits";
    case ValueForm::Rate:
      return PlainWords(value, revision) + ", a format such as 8N1, or both";
    case ValueForm::Switched:
      return PlainWords(value, revision) + ", ON or OFF, or both";
    case ValueForm::Mask:
      return digits() + " hexadecimal digits";
    case ValueForm::Map:
      return "up to " + digits() + " hexadecimal digits";
    case ValueForm::Zones:
      return Choice(Pieces(value.Words, '|')) + " or up to " + digits() + " digits from " +
             Range(value, revision);
    case ValueForm::Plain:
      break;
  }
  return PlainWords(value, revision);
}

std::string HintOf(const Setting& setting, const Revision& revision) {
  const std::string taken = TakenValues(setting, revision);
  if (taken.empty()) return {};
  std::string hint = "Radios take " + taken + ".";
  if (const char* const factory = setting.Value.Factory) {
    hint += " Factory value: ";
    hint += WholeNumber(factory) ? WithUnit(setting.Value, factory) : factory;
    hint += '.';
  }
  if (IsMasters(setting)) hint += ' ' + Capital(masterAlone) + '.';
  if (setting.Revisions.Gated()) hint += ' ' + Capital(TakenBy(setting.Revisions)) + '.';
  return hint;
}

Verdict Judge(const Setting& setting, std::string_view value, const Revision& revision,
              std::string_view modeText) {
  const std::string word = FileKey(setting);
  if (!setting.Revisions.HoldsIfUnknown(revision)) return {word, TakenBy(setting.Revisions)};
  if (IsMasters(setting) && IsModeOfNoMaster(modeText)) return {word, masterAlone};
  if (Taken(setting.Value, revision).Takes(value)) return {word, ""};
  const std::string shown = Shortened(Trim(value));
  return {word + (shown.empty() ? "" : " " + shown),
          "radios take " + TakenValues(setting, revision), true};
}

Verdict JudgeCommand(const Setting& setting, std::string_view command, const Revision& revision,
                     std::string_view modeText) {
  const std::string head = std::string(setting.Word) + " ";
  if (FindAnyCase(command, head) != 1) {
    return {Shortened(command), "this does not set " + Upper(setting.Word)};
  }
  return Judge(setting, command.substr(head.size()), revision, modeText);
}

}  // namespace quillmark
