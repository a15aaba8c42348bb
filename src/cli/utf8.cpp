#include "cli/utf8.h"

namespace quillmark {

namespace {

bool IsControl(unsigned char c) { return c < 32 || (c >= 127 && c < 160); }

}  // namespace

std::string ToUtf8(std::string_view latin1) {
  std::string text;
  for (const char c : latin1) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      text += c;
    } else {
      text += static_cast<char>(0xC0 | byte >> 6);
      text += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return text;
}

std::optional<std::string> FromUtf8(std::string_view text) {
  std::string latin1;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) {
      latin1 += text[at];
      continue;
    }
    // Only these two begin a character of the radio's alphabet.
    if ((lead != 0xC2 && lead != 0xC3) || ++at == text.size()) return std::nullopt;
    const auto trail = static_cast<unsigned char>(text[at]);
    if ((trail & 0xC0) != 0x80) return std::nullopt;
    latin1 += static_cast<char>((lead & 0x03) << 6 | (trail & 0x3F));
  }
  return latin1;
}

std::string OnOneRow(std::string_view latin1) {
  std::string row;
  for (const char c : latin1) {
    if (!IsControl(static_cast<unsigned char>(c))) {
      row += c;
    } else if (!row.empty() && row.back() != ' ') {
      row += ' ';
    }
  }
  while (row.ends_with(' ')) row.pop_back();
  return row;
}

}  // namespace quillmark
