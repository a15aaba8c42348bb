// What the user does to single copies: notes, exports, removals.

#include <fstream>
#include <ios>
#include <iterator>
#include <system_error>

#include "config/replaced_file.h"
#include "history/copy_store.h"
#include "history/new_file.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

// Larger than any copy that is read.
constexpr std::size_t mostBytes = 2'000'000;

[[noreturn]] void Refuse(const fs::path& path, const char* why) {
  throw FileError(PathText(path.filename()) + ": " + why);
}

bool IsPlain(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(fs::symlink_status(path, error));
}

std::string ContentOf(const fs::path& file) {
  if (!IsPlain(file)) Refuse(file, "it is gone, or no plain file");
  std::ifstream in(file, std::ios::binary);
  std::string text(mostBytes + 1, '\0');
  in.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(in.gcount()));
  if (in.bad() || !in.eof() || text.empty()) Refuse(file, "it can't be read");
  return text;
}

// A link is the user's way to a file that lies elsewhere.
fs::path TargetOf(const fs::path& path) {
  std::error_code error;
  fs::path target = fs::weakly_canonical(path, error);
  if (error) return path;
  const fs::file_status status = fs::status(target, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) Refuse(path, "it is no plain file");
  return target;
}

}  // namespace

void CopyStore::Note(const fs::path& file, const std::string& name, bool pinned) const {
  if (ReadCopy(file).State != CopyState::Sound) Refuse(file, "it is gone, or no sound copy");
  RewriteFile(files, file, WithNotes(ContentOf(file), name, pinned));
  const RadioCopy noted = ReadCopy(file).Copy;
  if (noted.Pinned != pinned || noted.Name != CopyName(name)) Refuse(file, "it can't be changed");
}

void CopyStore::Remove(const fs::path& file) {
  if (!IsPlain(file)) Refuse(file, "it is gone, or no plain file");
  std::error_code error;
  if (!fs::remove(file, error)) {
    throw FileError(PathText(file.filename()) + ": " + ErrorText(error));
  }
}

void CopyStore::Export(const fs::path& file, const fs::path& to) const {
  RewriteFile(files, TargetOf(to), ContentOf(file), Readers::Usual);
}

}  // namespace quillmark
