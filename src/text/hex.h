#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillmark {

// The value of a hex digit in either case; nothing for any other character.
constexpr std::optional<unsigned> HexDigit(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
  return std::nullopt;
}

// The byte that two hex digits stand for, `at` counted from 0; nothing where there are no two.
constexpr std::optional<unsigned> HexPair(std::string_view text, std::size_t at) {
  if (at + 2 > text.size()) return std::nullopt;
  const auto high = HexDigit(text[at]);
  const auto low = HexDigit(text[at + 1]);
  if (!high || !low) return std::nullopt;
  return *high * 16 + *low;
}

}  // namespace quillmark
