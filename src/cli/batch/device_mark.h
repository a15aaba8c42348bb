#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace quillmark {

// Tells a device node from the one that comes when the device is plugged in again.
struct DeviceMark {
  dev_t Device = 0;
  ino_t Node = 0;
  // Of the link under that name, if it is one.
  ino_t Link = 0;
  std::int64_t LinkMade = 0;  // ns

  bool operator==(const DeviceMark&) const = default;
};

// Nothing while there is no such device.
std::optional<DeviceMark> MarkOf(const std::string& device);

}  // namespace quillmark
