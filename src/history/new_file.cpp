#include "history/new_file.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <system_error>
#include <utility>

#include "config/replaced_file.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr int mostNames = 999;
constexpr const char* temporaryEnding = ".new";

[[noreturn]] void FailAt(const fs::path& path, const std::error_code& error) {
  throw FileError(PathText(path) + ": " +
                  (error ? ErrorText(error) : std::string("it could not be written")));
}

std::error_code LastError() { return {errno, std::generic_category()}; }

// "stem", "stem-002", ...: the order of the names is that of the numbers.
fs::path Numbered(const fs::path& folder, const std::string& stem, int number,
                  const std::string& ending) {
  char behind[16] = "";
  if (number > 1) std::snprintf(behind, sizeof behind, "-%03d", number);
  return folder / (stem + behind + ending);
}

// Opens a file that was not there; null with errno otherwise.
std::FILE* OpenNew(const fs::path& path) {
  errno = 0;
  return std::fopen(path.c_str(), "wbx");
}

// A file of its own name until it has its last one. It goes with the object.
class Temporary {
 public:
  Temporary(const fs::path& folder, const std::string& stem) {
    for (int number = 1; file == nullptr; ++number) {
      path = Numbered(folder, stem, number, temporaryEnding);
      file = OpenNew(path);
      if (file == nullptr && (errno != EEXIST || number == mostNames)) FailAt(path, LastError());
    }
  }
  ~Temporary() {
    if (file != nullptr) std::fclose(file);
    std::error_code ignored;
    fs::remove(path, ignored);
  }
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;

  void Write(const ProgramFiles& files, std::string_view text, Readers readers = Readers::Owner) {
    std::error_code error;
    if (readers == Readers::Owner) {
      fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, error);
    }
    if (error) FailAt(path, error);
    errno = 0;
    bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    written = std::fclose(std::exchange(file, nullptr)) == 0 && written;
    if (!written) FailAt(path, LastError());
    if (const std::error_code unsettled = files.Settle(path)) FailAt(path, unsettled);
  }
  const fs::path& Path() const { return path; }

 private:
  fs::path path;
  std::FILE* file = nullptr;
};

// Where there are no links: the name is taken by an empty file, which counts for nothing.
bool MoveToFreeName(const fs::path& from, const fs::path& to) {
  std::FILE* const empty = OpenNew(to);
  if (empty == nullptr) {
    if (errno == EEXIST) return false;
    FailAt(to, LastError());
  }
  std::fclose(empty);
  std::error_code error;
  fs::rename(from, to, error);
  if (!error) return true;
  std::error_code ignored;
  fs::remove(to, ignored);
  FailAt(to, error);
}

bool GiveName(const fs::path& from, const fs::path& to) {
  std::error_code error;
  fs::create_hard_link(from, to, error);
  if (!error) return true;
  return error != std::errc::file_exists && MoveToFreeName(from, to);
}

// What killed programs have left, ten minutes ago or more.
void RemoveLeftovers(const fs::path& folder, const fs::path& temporary) {
  std::error_code error;
  const auto now = fs::last_write_time(temporary, error);
  if (error) return;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    std::error_code ignored;
    const bool old = at->path().extension() == temporaryEnding &&
                     fs::is_regular_file(fs::symlink_status(at->path(), ignored)) &&
                     now - fs::last_write_time(at->path(), ignored) > std::chrono::minutes(10);
    if (old && !ignored) fs::remove(at->path(), ignored);
  }
}

}  // namespace

fs::path WriteNewFile(const ProgramFiles& files, const fs::path& folder, const std::string& stem,
                      const std::string& ending, std::string_view text) {
  Temporary temporary(folder, stem);
  temporary.Write(files, text);
  RemoveLeftovers(folder, temporary.Path());
  for (int number = 1; number <= mostNames; ++number) {
    fs::path path = Numbered(folder, stem, number, ending);
    if (!GiveName(temporary.Path(), path)) continue;
    if (const std::error_code unsettled = files.Settle(folder)) FailAt(folder, unsettled);
    return path;
  }
  FailAt(folder, std::make_error_code(std::errc::file_exists));
}

void RewriteFile(const ProgramFiles& files, const fs::path& path, std::string_view text,
                 Readers readers) {
  const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
  Temporary temporary(folder, path.filename().string());
  temporary.Write(files, text, readers);
  MoveOver(temporary.Path(), path);
  if (const std::error_code unsettled = files.Settle(folder)) FailAt(folder, unsettled);
}

}  // namespace quillmark
