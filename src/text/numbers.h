#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// Numbers in texts, always in the C locale.

// The value of a text that is a number as a whole: an optional sign, digits and at most one point,
// blanks around allowed; no exponent, hex or thousands mark. Nothing for any other text.
std::optional<double> NumericValue(std::string_view text);

// The longest run at the head, after leading blanks, that reads as a decimal number; 0 without one.
double LeadingNumber(std::string_view text);

// Rounded to a whole number, halves to the even one.
double RoundHalfEven(double value);

// "True" or "False" in any case.
std::optional<bool> BooleanValue(std::string_view text);
std::string BooleanText(bool value);

// A 24-bit colour, &HBBGGRR: "&H" and hex digits, or a decimal number.
std::optional<std::uint32_t> ColourValue(std::string_view text);

// Hex digits to four binary digits each and back. A character that is no hex digit adds nothing,
// nor does a group of four that is not binary or not whole. BinToHex gives capitals.
std::string HexToBin(std::string_view hex);
std::string BinToHex(std::string_view binary);

}  // namespace quillmark
