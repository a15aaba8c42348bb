#pragma once

#include <filesystem>
#include <string>

namespace quillmark {

// A path as single-byte text, for boxes and captions only: what Latin-1 lacks becomes "?".
std::string PathText(const std::filesystem::path& path);

}  // namespace quillmark
