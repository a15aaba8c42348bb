#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// Between the logic's single-byte text (Latin-1) and the terminal's UTF-8.

std::string ToUtf8(std::string_view latin1);
// Nothing when the text is no UTF-8, or holds what the radio's alphabet does not have.
std::optional<std::string> FromUtf8(std::string_view text);

// Line ends and other control characters as single blanks; none at its end.
std::string OnOneRow(std::string_view latin1);

}  // namespace quillmark
