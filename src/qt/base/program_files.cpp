#include "qt/base/program_files.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <cerrno>

namespace quillmark {

namespace {

constexpr const char* programFolder = "quillmark-console";

constexpr const char* configVariable = "XDG_CONFIG_HOME";
constexpr const char* configFallback = ".config";
constexpr const char* dataVariable = "XDG_DATA_HOME";
constexpr const char* dataFallback = ".local/share";

// Empty when the variable holds no absolute path.
std::filesystem::path FolderIn(const char* variable) {
  std::filesystem::path named = qgetenv(variable).toStdString();
  return named.is_absolute() ? named : std::filesystem::path();
}

// Qt takes the root folder for a missing one, so it is not asked.
std::filesystem::path HomeFolder() {
  if (auto named = FolderIn("HOME"); !named.empty()) return named;
  const passwd* account = getpwuid(geteuid());
  if (account == nullptr || account->pw_dir == nullptr) return {};
  std::filesystem::path home = account->pw_dir;
  return home.is_absolute() ? home : std::filesystem::path();
}

// The program's folder in one of the user's own: `variable` if it holds an absolute path, else
// `fallback` under the home folder. Empty when there is neither.
std::filesystem::path UserFolder(const char* variable, const char* fallback) {
  const auto named = FolderIn(variable);
  if (!named.empty()) return named / programFolder;
  const auto home = HomeFolder();
  return home.empty() ? home : home / fallback / programFolder;
}

}  // namespace

std::optional<std::string> FolderTrouble() {
  if (!UserFolder(configVariable, configFallback).empty() &&
      !UserFolder(dataVariable, dataFallback).empty()) {
    return std::nullopt;
  }
  return "There is no home folder to keep files in. Set HOME, or XDG_CONFIG_HOME and "
         "XDG_DATA_HOME.";
}

std::filesystem::path ConfigFolder() { return UserFolder(configVariable, configFallback); }

std::filesystem::path QtProgramFiles::Shipped() const {
  const std::filesystem::path program =
      QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
  const auto installed = program.parent_path() / "share" / programFolder;
  std::error_code ignored;
  return std::filesystem::is_directory(installed, ignored) ? installed
                                                           : program / "share" / programFolder;
}

std::filesystem::path QtProgramFiles::Data() const {
  return UserFolder(dataVariable, dataFallback);
}

std::error_code QtProgramFiles::Settle(const std::filesystem::path& fileOrFolder) const {
  const int handle = open(fileOrFolder.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (handle < 0) return {errno, std::generic_category()};
  std::error_code error;
  // Some file systems can't do it for folders, and need not.
  if (fsync(handle) != 0 && errno != EINVAL) error = {errno, std::generic_category()};
  close(handle);
  return error;
}

}  // namespace quillmark
