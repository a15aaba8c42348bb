#pragma once

#include <filesystem>
#include <system_error>

namespace quillmark {

// Where the program's files are.
class ProgramFiles {
 public:
  virtual ~ProgramFiles() = default;

  // What ships with the program, read-only.
  virtual std::filesystem::path Shipped() const = 0;
  // The user's own folder, which holds "Presets" and "Temp"; it may not exist yet.
  virtual std::filesystem::path Data() const = 0;

  // Returns when what was written to a file, or the names in a folder, would outlast a power
  // failure; with the error when the machine can't tell.
  virtual std::error_code Settle(const std::filesystem::path& fileOrFolder) const = 0;
};

}  // namespace quillmark
