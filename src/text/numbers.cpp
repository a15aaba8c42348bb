#include "text/numbers.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "text/hex.h"
#include "text/text.h"

namespace quillmark {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The length of the decimal number at the head of `text`, its sign included; 0 without one.
std::size_t NumberLength(std::string_view text) {
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
  std::size_t digits = 0;
  bool point = false;
  for (; at < text.size(); ++at) {
    if (IsDigit(text[at])) {
      ++digits;
    } else if (text[at] == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  return digits == 0 ? 0 : at;
}

double Convert(std::string_view number) {
  if (!number.empty() && number.front() == '+') number.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value,
                                      std::chars_format::fixed);
  if (result.ec != std::errc::result_out_of_range) return value;
  // Too large for a number, or too small to differ from nothing.
  const bool large = number.substr(0, number.find('.')).find_first_of("123456789") != number.npos;
  return !large ? 0 : number.front() == '-' ? -HUGE_VAL : HUGE_VAL;
}

}  // namespace

std::optional<double> NumericValue(std::string_view text) {
  const std::string_view number = Trim(text);
  const std::size_t length = NumberLength(number);
  if (length == 0 || length != number.size()) return std::nullopt;
  return Convert(number);
}

double LeadingNumber(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return 0;
  text.remove_prefix(first);
  const std::size_t length = NumberLength(text);
  return length == 0 ? 0 : Convert(text.substr(0, length));
}

double RoundHalfEven(double value) { return std::nearbyint(value); }

std::optional<bool> BooleanValue(std::string_view text) {
  if (EqualAnyCase(text, "True")) return true;
  if (EqualAnyCase(text, "False")) return false;
  return std::nullopt;
}

std::string BooleanText(bool value) { return value ? "True" : "False"; }

std::optional<std::uint32_t> ColourValue(std::string_view text) {
  int base = 10;
  if (text.size() > 2 && EqualAnyCase(text.substr(0, 2), "&H")) {
    base = 16;
    text.remove_prefix(2);
  }
  std::uint32_t value = 0;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, value, base);
  if (error != std::errc() || stopped != end || value > 0xFFFFFF) return std::nullopt;
  return value;
}

std::string HexToBin(std::string_view hex) {
  std::string binary;
  for (const char c : hex) {
    const auto digit = HexDigit(c);
    if (!digit) continue;
    for (int bit = 3; bit >= 0; --bit) binary += (*digit >> bit & 1) != 0 ? '1' : '0';
  }
  return binary;
}

std::string BinToHex(std::string_view binary) {
  std::string hex;
  for (std::size_t at = 0; at + 4 <= binary.size(); at += 4) {
    const std::string_view group = binary.substr(at, 4);
    if (group.find_first_not_of("01") != std::string_view::npos) continue;
    int digit = 0;
    for (const char bit : group) digit = digit * 2 + (bit - '0');
    hex += "0123456789ABCDEF"[digit];
  }
  return hex;
}

}  // namespace quillmark
