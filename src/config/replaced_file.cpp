#include "config/replaced_file.h"

#include <cerrno>
#include <system_error>

#include "text/path_text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const fs::path& path, const std::error_code& error) {
  throw FileError(PathText(path) + ": " +
                  (error ? ErrorText(error) : std::string("it could not be written")));
}

std::error_code LastError() { return {errno, std::generic_category()}; }

}  // namespace

fs::path FreeBackupName(const fs::path& path) {
  std::error_code ignored;
  for (int number = 1;; ++number) {
    fs::path name = path;
    name += number == 1 ? ".bak" : ".bak" + std::to_string(number);
    if (!fs::exists(fs::symlink_status(name, ignored))) return name;
  }
}

void MoveOver(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error) Fail(to, error);
}

ReplacedFile::ReplacedFile(const fs::path& path) {
  std::error_code error;
  target = fs::weakly_canonical(path, error);
  if (error) Fail(path, error);
  const fs::file_status status = fs::status(target, error);
  if (fs::exists(status)) {
    if (!fs::is_regular_file(status)) throw FileError(PathText(target) + ": it is no plain file");
    // Somebody made it read-only for a reason, though a folder's right would allow the move.
    if (!std::ofstream(target, std::ios::binary | std::ios::app)) Fail(target, LastError());
    backup = FreeBackupName(target);
    MoveOver(target, backup);
  }
  errno = 0;
  file.open(target, std::ios::binary | std::ios::trunc);
  if (file) {
    if (!backup.empty()) fs::permissions(target, status.permissions(), error);
    return;
  }
  const std::error_code cause = LastError();
  if (!backup.empty()) fs::rename(backup, target, error);
  Fail(target, cause);
}

void ReplacedFile::Line(std::string_view text) {
  errno = 0;
  file << text << "\r\n";
  // At once, so that a run that fails midway leaves every line up to there, and a full disk shows
  // at the line that did not fit.
  file.flush();
  Check();
}

void ReplacedFile::Complete() {
  errno = 0;
  file.close();
  Check();
  if (backup.empty()) return;
  std::error_code ignored;
  fs::remove(backup, ignored);
}

void ReplacedFile::Check() {
  if (!file) Fail(target, LastError());
}

}  // namespace quillmark
