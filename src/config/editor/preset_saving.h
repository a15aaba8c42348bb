#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace quillmark {

// Makes a preset of a configuration: asks for its number and its caption. The slot that was
// written, from 0; nothing when the user gives up, or, with a box, when the file can't be written.
// A preset that stood there is kept beside it.
std::optional<std::size_t> SaveAsPreset(Platform& platform, const std::vector<std::string>& lines);

}  // namespace quillmark
