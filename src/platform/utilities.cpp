#include "platform/utilities.h"

#include <cstdio>
#include <system_error>

namespace quillmark {

void WaitMilliseconds(EventLoop& events, int ms) { events.Sleep(Milliseconds(ms)); }

std::string ClockText(std::int64_t seconds) {
  constexpr std::int64_t day = 86400;
  const auto inDay = static_cast<int>((seconds % day + day) % day);
  char text[16];
  std::snprintf(text, sizeof text, "%02d:%02d:%02d", inDay / 3600, inDay / 60 % 60, inDay % 60);
  return text;
}

bool FileExists(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::exists(path, error) && !error;
}

bool DirectoryExists(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error) && !error;
}

}  // namespace quillmark
