#pragma once

#include <cstdint>
#include <string>

namespace quillmark {

// Names of files after the radio's serial number, from the text of its row ("SN 00123456"). What a
// radio says is no file's name: only letters, digits, blanks, dashes and underscores stay, and 40
// characters at most.

// Empty when nothing stays.
std::string SerialName(const std::string& row);
// "00123456 2026-11-23.txt"; without a number "radio 2026-11-23.txt". `localSeconds` is the local
// time since 1970-01-01 00:00.
std::string SuggestedName(const std::string& row, std::int64_t localSeconds);

}  // namespace quillmark
