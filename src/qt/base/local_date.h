#pragma once

#include <cstdint>
#include <string>

namespace quillmark {

// Today's date in the short form of the user's locale, in the radio's alphabet.
std::string LocalShortDate();
// The local date and time of a moment, in seconds since 1970-01-01 00:00 UTC.
std::string LocalDateAndTime(std::int64_t utcSeconds);

}  // namespace quillmark
