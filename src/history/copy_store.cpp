#include "history/copy_store.h"

#include <algorithm>
#include <iterator>
#include <system_error>

#include "config/replaced_file.h"
#include "history/new_file.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr const char* ending = ".txt";

bool IsFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(fs::symlink_status(path, error));
}

// Makes it for its owner alone.
void MakeOwnFolder(const fs::path& path) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(path, error)) && !IsFolder(path)) {
    throw FileError(PathText(path) + ": it is no folder");
  }
  fs::create_directory(path, error);
  if (!IsFolder(path)) throw FileError(PathText(path) + ": " + ErrorText(error));
  fs::permissions(path, fs::perms::owner_all, error);
}

std::vector<fs::path> EntriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  if (!IsFolder(folder)) return entries;
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
    entries.push_back(at->path());
  }
  return entries;
}

// Names are made of their times, so their order is that of the times.
bool IsOlder(const fs::path& a, const fs::path& b) { return a.stem() < b.stem(); }

std::uintmax_t SizeOf(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(fs::symlink_status(file, error))) return 0;
  const std::uintmax_t size = fs::file_size(file, error);
  return error ? 0 : size;
}

// Only a sound copy goes: whatever else has come there is somebody's.
bool RemoveIfUnpinned(const fs::path& file) {
  const KeptCopy kept = ReadCopy(file);
  std::error_code error;
  return kept.State == CopyState::Sound && !kept.Copy.Pinned && fs::remove(file, error);
}

}  // namespace

CopyStore::CopyStore(const ProgramFiles& itsFiles, CopyLimits its) : files(itsFiles), limits(its) {}

fs::path CopyStore::MakeFolder(const std::string& folderName) const {
  std::error_code error;
  fs::create_directories(files.Data(), error);
  const fs::path all = files.Data() / "radios";
  MakeOwnFolder(all);
  MakeOwnFolder(all / folderName);
  return all / folderName;
}

fs::path CopyStore::Add(const std::string& folderName, const std::string& text,
                        std::int64_t utcSeconds) {
  const fs::path folder = MakeFolder(folderName);
  std::int64_t time = utcSeconds;
  for (const fs::path& each : FilesOf(folderName)) {
    if (const auto its = TimeOfName(each.stem().string())) time = std::max(time, *its + 1);
  }
  fs::path file = WriteNewFile(files, folder, TimeName(time), ending, text);
  MakeRoom(file);
  return file;
}

std::vector<std::string> CopyStore::Radios() const {
  std::vector<std::string> names;
  for (const fs::path& entry : EntriesOf(files.Data() / "radios")) {
    const std::string name = PathText(entry.filename());
    if (IsFolder(entry) && FolderName("SN " + name) == name) names.push_back(name);
  }
  std::ranges::sort(names);
  return names;
}

std::vector<fs::path> CopyStore::FilesOf(const std::string& folderName) const {
  const fs::path all = files.Data() / "radios";
  if (!IsFolder(all)) return {};
  std::vector<fs::path> found = EntriesOf(all / folderName);
  std::erase_if(found, [](const fs::path& file) { return file.extension() != ending; });
  std::ranges::sort(found, IsOlder);
  return found;
}

std::optional<RadioCopy> CopyStore::Newest(const std::string& folderName) const {
  const auto found = FilesOf(folderName);
  for (auto file = found.rbegin(); file != found.rend(); ++file) {
    if (KeptCopy kept = ReadCopy(*file); kept.State == CopyState::Sound) return kept.Copy;
  }
  return std::nullopt;
}

void CopyStore::MakeRoom(const fs::path& added) {
  RemoveBeyondNumber(PathText(added.parent_path().filename()), added);
  // Other programs may have added some: what is known is exact only near the limit.
  if (bytes) *bytes += SizeOf(added);
  if (!bytes || *bytes > limits.Bytes) RemoveBeyondBytes(added);
}

std::vector<fs::path> CopyStore::OlderOf(const std::string& folderName,
                                         const fs::path& added) const {
  std::vector<fs::path> older = FilesOf(folderName);
  std::erase_if(older, [](const fs::path& file) { return !TimeOfName(file.stem().string()); });
  const auto newest = std::find_if(older.rbegin(), older.rend(), [](const fs::path& file) {
    return ReadCopy(file).State == CopyState::Sound;
  });
  if (newest != older.rend()) older.erase(std::next(newest).base());
  std::erase(older, added);
  return older;
}

void CopyStore::RemoveBeyondNumber(const std::string& folderName, const fs::path& added) const {
  std::size_t number = FilesOf(folderName).size();
  if (number <= limits.OfRadio) return;
  for (const fs::path& file : OlderOf(folderName, added)) {
    if (number <= limits.OfRadio) return;
    if (RemoveIfUnpinned(file)) --number;
  }
}

void CopyStore::RemoveBeyondBytes(const fs::path& added) {
  std::uintmax_t all = 0;
  for (const std::string& radio : Radios()) {
    for (const fs::path& file : FilesOf(radio)) all += SizeOf(file);
  }
  std::vector<fs::path> older;
  for (const std::string& radio : all > limits.Bytes ? Radios() : std::vector<std::string>()) {
    const auto some = OlderOf(radio, added);
    older.insert(older.end(), some.begin(), some.end());
  }
  std::ranges::sort(older, IsOlder);
  for (const fs::path& file : older) {
    if (all <= limits.Bytes) break;
    const std::uintmax_t size = SizeOf(file);
    if (RemoveIfUnpinned(file)) all -= size;
  }
  bytes = all;
}

}  // namespace quillmark
