#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmark {

// A file that could not be made, written or moved; what() is the system's text on it.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A path beside `path` that is free: its name and ".bak", ".bak2", ...
std::filesystem::path FreeBackupName(const std::filesystem::path& path);

// Moves `from` over `to` in one step. Throws FileError.
void MoveOver(const std::filesystem::path& from, const std::filesystem::path& to);

// A file being written in the place of an old one. The old one stays beside it under a ".bak" name
// until the new one is complete, so that a run that fails midway leaves both: what has been written
// so far, and what was there before. Only plain files are replaced; behind a link, the file that it
// points to.
class ReplacedFile {
 public:
  // Throws FileError; then the old file stands where it stood.
  explicit ReplacedFile(const std::filesystem::path& path);
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;
  ~ReplacedFile() = default;

  // The text and CR LF. Throws FileError.
  void Line(std::string_view text);
  // Everything has been written: the old file goes. Throws FileError, and then keeps it.
  void Complete();

 private:
  void Check();

  std::filesystem::path target;
  std::filesystem::path backup;  // empty without an old file
  std::ofstream file;
};

}  // namespace quillmark
