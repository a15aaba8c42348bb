#include "config/replaced_file.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "text/path_text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

std::string Cause(const std::error_code& error) {
  return error ? ErrorText(error) : std::string("it could not be written");
}

[[noreturn]] void FailAt(const fs::path& path, const std::error_code& error) {
  throw FileError(PathText(path) + ": " + Cause(error));
}

std::error_code LastError() { return {errno, std::generic_category()}; }

// The folder, or the file system, takes no other names.
bool MayNotRename(const std::error_code& error) {
  const int refusals[] = {EACCES, EPERM, EROFS, EBUSY};
  return std::find(std::begin(refusals), std::end(refusals), error.value()) != std::end(refusals);
}

// Leaves the rights of an existing `to` as they are: they may be another user's to change.
bool CopyContent(const fs::path& from, const fs::path& to) {
  std::ifstream in(from, std::ios::binary);
  std::ofstream out(to, std::ios::binary | std::ios::trunc);
  const bool empty = in && in.peek() == std::ifstream::traits_type::eof();
  if (!empty) out << in.rdbuf();
  out.close();
  std::error_code error;
  return in.is_open() && out && fs::file_size(from, error) == fs::file_size(to, error) && !error;
}

}  // namespace

fs::path FreeBackupName(const fs::path& path, int last) {
  std::error_code ignored;
  for (int number = 1;; ++number) {
    fs::path name = path;
    name += number == 1 ? ".bak" : ".bak" + std::to_string(number);
    if (number == last || !fs::exists(fs::symlink_status(name, ignored))) return name;
  }
}

void MoveOver(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error) FailAt(to, error);
}

ReplacedFile::ReplacedFile(const fs::path& path, const fs::path& dataFolder) {
  std::error_code error;
  target = fs::weakly_canonical(path, error);
  if (error) FailAt(path, error);
  const fs::file_status status = fs::status(target, error);
  if (fs::exists(status)) {
    if (!fs::is_regular_file(status)) throw FileError(PathText(target) + ": it is no plain file");
    KeepOld(dataFolder);
  }
  errno = 0;
  file.open(target, std::ios::binary | std::ios::trunc);
  if (!file) Fail();
  if (!backup.empty() && !inPlace) fs::permissions(target, status.permissions(), error);
}

ReplacedFile::~ReplacedFile() {
  // Nobody would look for the old content in the data folder.
  if (inPlace && !ended) PutBack();
}

void ReplacedFile::KeepOld(const fs::path& dataFolder) {
  errno = 0;
  // Somebody made it read-only for a reason, though a folder's right would allow the move.
  if (!std::ofstream(target, std::ios::binary | std::ios::app)) FailAt(target, LastError());
  backup = FreeBackupName(target);
  std::error_code error;
  fs::rename(target, backup, error);
  if (error && !MayNotRename(error)) FailAt(target, error);
  if (error) CopyOld(dataFolder / "Replaced");
}

void ReplacedFile::CopyOld(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  // The file may be for its owner's eyes only.
  fs::permissions(folder, fs::perms::owner_all, error);
  backup = FreeBackupName(folder / target.filename());
  errno = 0;
  if (!CopyContent(target, backup)) {
    const std::error_code cause = LastError();
    fs::remove(backup, error);
    FailAt(backup, cause);
  }
  inPlace = true;
}

void ReplacedFile::Line(std::string_view text) { Bytes(std::string(text) + "\r\n"); }

void ReplacedFile::Bytes(std::string_view text) {
  errno = 0;
  file << text;
  // At once, so that a run that fails midway leaves every line up to there, and a full disk shows
  // at the line that did not fit.
  file.flush();
  if (!file) Fail();
}

void ReplacedFile::Complete() {
  errno = 0;
  file.close();
  if (!file) Fail();
  ended = true;
  if (backup.empty()) return;
  std::error_code ignored;
  fs::remove(backup, ignored);
}

bool ReplacedFile::PutBack() {
  ended = true;
  file.close();
  std::error_code error;
  if (backup.empty()) {
    fs::remove(target, error);
    return true;
  }
  if (!inPlace) {
    fs::rename(backup, target, error);
    return !error;
  }
  if (!CopyContent(backup, target)) return false;
  fs::remove(backup, error);
  return true;
}

std::string ReplacedFile::PlaceOfOld() const {
  return "What the file held before is in " + PathText(backup);
}

ReplacedFile::Remains ReplacedFile::EndEarly() {
  ended = true;
  file.close();
  if (!inPlace) return {true, backup};
  if (PutBack()) return {false, {}};
  return {true, backup};
}

void ReplacedFile::Abandon() {
  if (!PutBack()) throw FileError(PlaceOfOld());
}

void ReplacedFile::Fail() {
  std::string text = PathText(target) + ": " + Cause(LastError());
  if (!PutBack()) text += "\r\n\r\n" + PlaceOfOld();
  throw FileError(text);
}

}  // namespace quillmark
