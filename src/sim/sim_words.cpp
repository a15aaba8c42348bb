#include "sim/sim_words.h"

#include <algorithm>

namespace quillmark::sim {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
char Raise(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string Lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Lower);
  return result;
}

std::string Raised(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Raise);
  return result;
}

bool SameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char left, char right) { return Lower(left) == Lower(right); });
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> Tokens(std::string_view text) {
  std::vector<std::string> tokens;
  for (const std::string_view piece : Pieces(text, ' ')) {
    if (!piece.empty()) tokens.emplace_back(piece);
  }
  return tokens;
}

std::vector<std::string_view> Pieces(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  while (true) {
    const auto end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

std::string Squeezed(std::string_view text) {
  std::string result;
  for (const std::string& token : Tokens(text)) {
    if (!result.empty()) result += ' ';
    result += token;
  }
  return result;
}

std::optional<int> WholeNumber(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || text.size() > 9) return std::nullopt;
  int number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + (c - '0');
  }
  return negative ? -number : number;
}

std::string Padded(long long number, std::size_t width) {
  std::string digits = std::to_string(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

std::optional<std::string_view> ValueAfter(std::string_view line, std::string_view word) {
  if (line.size() < word.size() || !SameWord(line.substr(0, word.size()), word)) {
    return std::nullopt;
  }
  line.remove_prefix(word.size());
  if (line.empty()) return line;
  if (line.front() != ' ') return std::nullopt;
  return line.substr(1);
}

std::string MegahertzText(int kilohertz) {
  return std::to_string(kilohertz / 1000) + "." + Padded(kilohertz % 1000, 3);
}

std::optional<int> KilohertzOf(std::string_view text) {
  const auto point = text.find('.');
  std::string fraction;
  if (point != std::string_view::npos) fraction = text.substr(point + 1);
  if (fraction.size() > 3) return std::nullopt;
  fraction.append(3 - fraction.size(), '0');
  return WholeNumber(std::string(text.substr(0, point)) + fraction);
}

}  // namespace quillmark::sim
