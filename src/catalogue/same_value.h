#pragma once

#include <string_view>

#include "catalogue/setting.h"

namespace quillmark {

// Comparing values of a setting by what they mean: as the radio prints them, as a file holds them,
// as they are sent. Texts are single-byte.

// Whether the text is a value, and not what stands in the place of one ("n/a", "NOT AVAILABLE",
// "MASTER ONLY", ...). A free text (the owner's name and message) may be empty.
bool IsValue(const Setting& setting, std::string_view text);

// Whether both texts give the setting the same value. Its words, as the radio prints and as it
// takes them, letter case, blanks, punctuation, leading noughts and the unit behind a number do not
// count: "PWR 30" is "PWR 30 dBm", "AMASK ffffffff" is "MASK: FFFF FFFF". A free text must be the
// same to the letter. A part of a value is another value: "BAUD 9600" is not "BAUD 9600 8N1".
bool MeansTheSame(const Setting& setting, std::string_view one, std::string_view other);

}  // namespace quillmark
