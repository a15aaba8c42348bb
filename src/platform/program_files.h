#pragma once

#include <filesystem>

namespace quillmark {

// Where the program's files are.
class ProgramFiles {
 public:
  virtual ~ProgramFiles() = default;

  // What ships with the program, read-only.
  virtual std::filesystem::path Shipped() const = 0;
  // The user's own folder, which holds "Presets" and "Temp"; it may not exist yet.
  virtual std::filesystem::path Data() const = 0;
};

}  // namespace quillmark
