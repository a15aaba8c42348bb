#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/setting.h"

namespace quillmark {

// What a text says of a setting, whichever words and blanks stand around it: "PWR 30", "30" and the
// radio's "PWR 30 dBm" mean the same, and so do "AMASK FFFF FFFF" and "MASK: FFFF FFFF". An owner's
// name or message is a free text: it has no word in front, and its letters count.

// The parts of the value, in capitals and without its unit: one for most settings, two for a data
// rate and for what is also switched ("19200", "ON"). Empty when the text holds no value.
std::vector<std::string> ValueParts(const Setting& setting, std::string_view text);

// Whether both texts mean the same value.
bool SameValue(const Setting& setting, std::string_view a, std::string_view b);

// Whether a radio that shows `shown` has what `sent` was to set. A line may set a part of the
// value: "BAUD 9600" leaves the format alone, "DLINK ON" the rate.
bool HasValueSent(const Setting& setting, std::string_view shown, std::string_view sent);

// Whether the text gives the setting a value; a free text may be empty.
bool IsValue(const Setting& setting, std::string_view text);

// Whether the text is what stands where there is no value: nothing, "n/a", "NOT AVAILABLE", or the
// radio's words that it has none.
bool IsNoValue(std::string_view text);

}  // namespace quillmark
