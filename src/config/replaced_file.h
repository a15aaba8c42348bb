#pragma once

#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmark {

// A file that could not be made, written or moved; what() is the system's text on it.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A path beside `path` that is free: its name and ".bak", ".bak2", ... Where all names up to number
// `last` are taken, the one with that number.
std::filesystem::path FreeBackupName(const std::filesystem::path& path,
                                     int last = std::numeric_limits<int>::max());

// Moves `from` over `to` in one step. Throws FileError.
void MoveOver(const std::filesystem::path& from, const std::filesystem::path& to);

// A file being written in the place of an old one. The old one stays beside it under a ".bak" name
// until the new one is complete. A run that ends before leaves both: what has been written so far,
// and what was there before. When the file itself fails (a full disk), what was written goes and
// the old file stands in its place again.
//
// In a folder where nothing can be renamed the file is written in place. A copy of its old content
// lies in "Replaced" in the user's data folder meanwhile. Whatever ends the run early, the old
// content is put back; the copy stays only if that fails.
//
// Only plain files are replaced; behind a link, the file that it points to.
class ReplacedFile {
 public:
  // `dataFolder` is the user's. Throws FileError; then the old file stands as it stood.
  ReplacedFile(const std::filesystem::path& path, const std::filesystem::path& dataFolder);
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;
  ~ReplacedFile();

  // The text and CR LF. Throws FileError; the object is of no further use then.
  void Line(std::string_view text);
  // The text as it is. Throws FileError, likewise.
  void Bytes(std::string_view text);
  // Everything has been written: the old file goes. Throws FileError.
  void Complete();
  // What a run that ends early leaves behind it.
  struct Remains {
    bool Shortened = true;      // the lines so far; false: the file is what it was before
    std::filesystem::path Old;  // where the old content is then; empty: nowhere else
  };
  // Ends such a run as the destructor would, and tells what is left.
  Remains EndEarly();
  // Nothing is to be saved after all: the old file stands in its place again. Throws FileError.
  void Abandon();

 private:
  void KeepOld(const std::filesystem::path& dataFolder);
  void CopyOld(const std::filesystem::path& folder);
  bool PutBack();
  std::string PlaceOfOld() const;
  [[noreturn]] void Fail();

  std::filesystem::path target;
  std::filesystem::path backup;  // empty without an old file
  bool inPlace = false;          // the backup is a copy, and the target is the old file itself
  bool ended = false;            // complete, or put back
  std::ofstream file;
};

}  // namespace quillmark
