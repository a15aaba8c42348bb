#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quillmark {

// What files and folders of the history are called.

// The name of a file of that time, without its ending: "2026-11-23_15-04-05"; and the time, in
// seconds since 1970, that such a name tells.
std::string TimeName(std::int64_t utcSeconds);
std::optional<std::int64_t> TimeOfName(const std::string& stem);

// The name of a radio's folder: its serial number, if that is 1 to 24 letters and digits, as what a
// radio says is no file's name. Else empty.
std::string FolderName(const std::string& serial);

}  // namespace quillmark
