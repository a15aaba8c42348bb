#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// Cutting replies. Text is single-byte; positions count from 1, and 0 means "not there". Case is
// folded for the letters A to Z only. Every function is total: a cut that can't be made is nothing.

std::size_t Find(std::string_view text, std::string_view wanted, std::size_t from = 1);
std::size_t FindAnyCase(std::string_view text, std::string_view wanted, std::size_t from = 1);

// With regard to case.
bool Holds(std::string_view text, std::string_view wanted);

// Without regard to case.
bool Contains(std::string_view text, std::string_view wanted);
bool EqualAnyCase(std::string_view a, std::string_view b);
bool EndsWithAnyCase(std::string_view text, std::string_view end);

// `length` characters from position `start`, fewer where the text ends before that. Nothing when
// `start` is below 1 or `length` is below 0.
std::optional<std::string> Mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t length);

std::string Upper(std::string_view text);
// Without the blanks at both ends.
std::string_view Trim(std::string_view text);

}  // namespace quillmark
