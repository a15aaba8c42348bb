#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::sim {

// Small text helpers of the simulated radio: what a command line interpreter needs to take a typed
// line apart. All are pure functions on single-byte text.

std::string Lowered(std::string_view text);
std::string Raised(std::string_view text);
bool SameWord(std::string_view a, std::string_view b);

// Without blanks at either end.
std::string_view Trimmed(std::string_view text);
// The pieces between runs of blanks; none for a blank text.
std::vector<std::string> Tokens(std::string_view text);
// The pieces between single separators; "" has one empty piece.
std::vector<std::string_view> Pieces(std::string_view text, char separator);
// Trimmed, and each run of blanks inside made one blank.
std::string Squeezed(std::string_view text);

// A whole number: an optional sign and digits only, at most 9 of them; anything else is nothing.
std::optional<int> WholeNumber(std::string_view text);
// Number as text, with zeros in front up to `width` characters.
std::string Padded(long long number, std::size_t width);

// If `line` is `word` alone, or `word` and a blank, what follows that one blank ("" for the word
// alone); nothing for any other line. Case does not matter.
std::optional<std::string_view> ValueAfter(std::string_view line, std::string_view word);

// "915.000" for 915000, and back; nothing for text that is no frequency in MHz with at most three
// digits behind the point.
std::string MegahertzText(int kilohertz);
std::optional<int> KilohertzOf(std::string_view text);

}  // namespace quillmark::sim
