#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "platform/program_files.h"

namespace quillmark {

// Shipped files lie in share/quillmark-console, beside the program's folder when it is installed
// and inside it in a build folder; the user's own under $XDG_DATA_HOME, else ~/.local/share.
class QtProgramFiles : public ProgramFiles {
 public:
  std::filesystem::path Shipped() const override;
  std::filesystem::path Data() const override;
  std::error_code Settle(const std::filesystem::path& fileOrFolder) const override;
};

// The user's own folders: ConfigFolder holds the preferences, QtProgramFiles::Data the rest.
// Without HOME they lie in the home folder of the account. Both are empty where even that is
// missing.
std::filesystem::path ConfigFolder();
// Why the program can't be started, as a sentence: one of the two folders is missing.
std::optional<std::string> FolderTrouble();

}  // namespace quillmark
