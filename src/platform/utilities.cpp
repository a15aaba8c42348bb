#include "platform/utilities.h"

#include <system_error>

namespace quillmark {

void WaitMilliseconds(EventLoop& events, int ms) { events.Sleep(Milliseconds(ms)); }

bool FileExists(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::exists(path, error) && !error;
}

bool DirectoryExists(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error) && !error;
}

}  // namespace quillmark
