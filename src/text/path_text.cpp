#include "text/path_text.h"

#include <cstddef>

namespace quillmark {

namespace {

// How many bytes follow a leading byte of UTF-8.
std::size_t Following(unsigned char lead) {
  if (lead >= 0xF0) return 3;
  if (lead >= 0xE0) return 2;
  return lead >= 0xC0 ? 1 : 0;
}

}  // namespace

std::string PathText(const std::filesystem::path& path) {
  const std::string utf8 = path.string();
  std::string text;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t following = Following(lead);
    if (following == 0) {
      text += lead < 0x80 ? utf8[at] : '?';
      continue;
    }
    const bool latin1 = following == 1 && lead <= 0xC3 && at + 1 < utf8.size();
    if (latin1) {
      const auto next = static_cast<unsigned char>(utf8[at + 1]);
      text += static_cast<char>((lead & 0x03) << 6 | (next & 0x3F));
    } else {
      text += '?';
    }
    at += following;
  }
  return text;
}

std::string ErrorText(const std::error_code& error) { return PathText(error.message()); }

}  // namespace quillmark
