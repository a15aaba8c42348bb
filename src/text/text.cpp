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
  if (from < 1) from = 1;
  if (from - 1 > text.size()) return 0;
  // One character that is no letter is the common case, and quick.
  if (wanted.size() == 1 && Fold(wanted[0]) == wanted[0] && (wanted[0] < 'A' || wanted[0] > 'Z')) {
    return Find(text, wanted, from);
  }
  const auto begin = text.begin() + static_cast<std::ptrdiff_t>(from - 1);
  const auto at = std::search(begin, text.end(), wanted.begin(), wanted.end(), SameFolded);
  if (at == text.end() && !wanted.empty()) return 0;
  return static_cast<std::size_t>(at - text.begin()) + 1;
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
