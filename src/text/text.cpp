#include "text/text.h"

#include <algorithm>

namespace quillmark {

namespace {

char Fold(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool SameFolded(char a, char b) { return Fold(a) == Fold(b); }

}  // namespace

std::size_t Find(std::string_view text, std::string_view wanted, std::size_t from) {
  if (from < 1) from = 1;
  const std::size_t at = text.find(wanted, from - 1);
  return at == std::string_view::npos ? 0 : at + 1;
}

std::size_t FindAnyCase(std::string_view text, std::string_view wanted, std::size_t from) {
  if (wanted.empty() || from < 1) return Find(text, wanted, from);
  // The first letter is looked for in both cases, because that is quick: waits search again and
  // again.
  const char upper = Fold(wanted[0]);
  const char lower = upper >= 'A' && upper <= 'Z' ? static_cast<char>(upper - 'A' + 'a') : upper;
  std::size_t nextUpper = text.find(upper, from - 1);
  std::size_t nextLower = lower == upper ? std::string_view::npos : text.find(lower, from - 1);
  for (;;) {
    std::size_t& next = nextUpper < nextLower ? nextUpper : nextLower;
    if (next == std::string_view::npos || text.size() - next < wanted.size()) return 0;
    if (EqualAnyCase(text.substr(next, wanted.size()), wanted)) return next + 1;
    next = text.find(&next == &nextUpper ? upper : lower, next + 1);
  }
}

bool Holds(std::string_view text, std::string_view wanted) { return Find(text, wanted) != 0; }

bool Contains(std::string_view text, std::string_view wanted) {
  return FindAnyCase(text, wanted) != 0;
}

bool EqualAnyCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), SameFolded);
}

bool EndsWithAnyCase(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && EqualAnyCase(text.substr(text.size() - end.size()), end);
}

std::optional<std::string> Mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t length) {
  if (start < 1 || length < 0) return std::nullopt;
  const auto from = static_cast<std::size_t>(start - 1);
  if (from >= text.size()) return std::string();
  return std::string(text.substr(from, static_cast<std::size_t>(length)));
}

std::string Upper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), Fold);
  return upper;
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace quillmark
