#include "cli/batch/device_mark.h"

#include <sys/stat.h>

namespace quillmark {

std::optional<DeviceMark> MarkOf(const std::string& device) {
  constexpr std::int64_t second = 1'000'000'000;
  struct stat node {};
  struct stat link {};
  if (stat(device.c_str(), &node) != 0 || lstat(device.c_str(), &link) != 0) return std::nullopt;
  DeviceMark mark{.Device = node.st_rdev, .Node = node.st_ino};
  if (S_ISLNK(link.st_mode)) {
    mark.Link = link.st_ino;
    mark.LinkMade = link.st_ctim.tv_sec * second + link.st_ctim.tv_nsec;
  }
  return mark;
}

}  // namespace quillmark
