#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/event_loop.h"

namespace quillmark {

// Small services that many flows use.

// Holds the thread for `ms` milliseconds and delivers no events.
void WaitMilliseconds(EventLoop& events, int ms);

// "hh:nn:ss" of a time of day, or of a stretch of time less whole days.
std::string ClockText(std::int64_t seconds);

// Whether the attributes of the path can be read; true for a folder too, false on any failure.
bool FileExists(const std::filesystem::path& path);
// Whether they can be read and are those of a folder.
bool DirectoryExists(const std::filesystem::path& path);

}  // namespace quillmark
