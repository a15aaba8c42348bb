#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace quillmark {

// The bytes of a file; none when it can't be read.
inline std::string FileText(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace quillmark
