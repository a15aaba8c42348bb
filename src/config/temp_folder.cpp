#include "config/temp_folder.h"

#include <system_error>
#include <vector>

namespace quillmark {

namespace fs = std::filesystem;

fs::path TempFolder(const ProgramFiles& files) { return files.Data() / "Temp"; }

void ClearTempDirectory(const ProgramFiles& files) {
  const fs::path folder = TempFolder(files);
  std::error_code error;
  const fs::file_status status = fs::symlink_status(folder, error);
  if (!fs::exists(status)) {
    fs::create_directories(folder, error);
    return;
  }
  // A link in the folder's place could lead anywhere: nothing behind it is ours to delete.
  if (!fs::is_directory(status)) return;
  std::vector<fs::path> doomed;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    std::error_code unreadable;
    const fs::file_status entry = at->symlink_status(unreadable);
    if (fs::is_regular_file(entry) || fs::is_symlink(entry)) doomed.push_back(at->path());
  }
  for (const fs::path& path : doomed) fs::remove(path, error);
}

}  // namespace quillmark
