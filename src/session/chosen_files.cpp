#include "session/chosen_files.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr const char* folders = "Folders";
constexpr const char* recent = "Recent";

const char* KeyOf(FileKind kind) {
  switch (kind) {
    case FileKind::Configuration:
      return "Configurations";
    case FileKind::Log:
      return "Logs";
    case FileKind::Firmware:
      return "Firmware";
    case FileKind::Print:
      break;
  }
  return "Prints";
}

std::string RecentKey(std::size_t place) { return "File" + std::to_string(place + 1); }

// One that is gone is no place to open a dialog in.
fs::path FolderOf(const PreferenceStore& store, FileKind kind) {
  const fs::path folder = store.ReadPath(folders, KeyOf(kind));
  std::error_code ignored;
  return fs::is_directory(folder, ignored) ? folder : fs::path();
}

fs::path Whole(const fs::path& file) {
  std::error_code error;
  fs::path whole = fs::absolute(file, error);
  return error ? file : whole.lexically_normal();
}

void NoteFolder(PreferenceStore& store, FileKind kind, const fs::path& file) {
  const std::string folder = Whole(file).parent_path().string();
  if (store.ReadPath(folders, KeyOf(kind)) == folder) return;
  store.WritePaths({{folders, KeyOf(kind), folder}});
}

}  // namespace

std::optional<fs::path> ChooseToOpen(Platform& platform, FileKind kind, FileDialog dialog) {
  dialog.Folder = FolderOf(platform.Preferences, kind);
  auto path = platform.Dialogs.OpenFile(dialog);
  if (path && !path->empty()) NoteFolder(platform.Preferences, kind, *path);
  return path;
}

std::optional<fs::path> ChooseToSave(Platform& platform, FileKind kind, FileDialog dialog) {
  dialog.Folder = FolderOf(platform.Preferences, kind);
  auto path = platform.Dialogs.SaveFile(dialog);
  if (path && !path->empty()) NoteFolder(platform.Preferences, kind, *path);
  return path;
}

std::optional<PrintTarget> ChooseToPrint(Platform& platform, const fs::path& file) {
  auto target =
      platform.Dialogs.ChoosePrinter(file, FolderOf(platform.Preferences, FileKind::Print));
  if (target && !target->PdfFile.empty()) {
    NoteFolder(platform.Preferences, FileKind::Print, target->PdfFile);
  }
  return target;
}

void NoteConfiguration(PreferenceStore& store, const fs::path& file) {
  const fs::path newest = Whole(file);
  auto files = RecentConfigurations(store);
  std::erase(files, newest);
  files.insert(files.begin(), newest);
  files.resize(std::min(files.size(), MostRecentFiles));
  std::vector<PreferenceStore::Entry> entries;
  for (std::size_t place = 0; place < files.size(); ++place) {
    entries.push_back({recent, RecentKey(place), files[place].string()});
  }
  store.WritePaths(entries);
}

std::vector<fs::path> RecentConfigurations(const PreferenceStore& store) {
  std::vector<fs::path> files;
  for (std::size_t place = 0; place < MostRecentFiles; ++place) {
    fs::path file = store.ReadPath(recent, RecentKey(place));
    if (!file.empty()) files.push_back(std::move(file));
  }
  return files;
}

}  // namespace quillmark
