#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "history/radio_copy.h"
#include "platform/program_files.h"

namespace quillmark {

// How much is kept.
struct CopyLimits {
  std::size_t OfRadio = 500;           // copies
  std::uintmax_t Bytes = 200'000'000;  // of all radios
};

// The files of the copies: "radios" in the user's data folder, in it a folder for each radio, named
// after its serial number, in that a file for each copy, named after its time. For the user's own
// eyes only. A file is there whole or not at all, also when the program is killed; none is ever
// replaced by another copy, so several programs may keep copies at once. Links are not followed,
// and what is no sound copy is left alone.
class CopyStore {
 public:
  explicit CopyStore(const ProgramFiles& files, CopyLimits limits = {});

  // Keeps a copy of a radio whose folder has that name, and removes the oldest ones beyond the
  // limits: neither pinned ones nor the newest one of a radio. Its name tells the time, or, where a
  // wrong clock has been at work, the second behind the newest name. Returns the file. Throws
  // FileError.
  std::filesystem::path Add(const std::string& folderName, const std::string& text,
                            std::int64_t utcSeconds);

  // The names of the radios' folders, in their order.
  std::vector<std::string> Radios() const;
  // What stands in one of them under the ending of a copy, oldest first.
  std::vector<std::filesystem::path> FilesOf(const std::string& folderName) const;
  // Notes a name and the pin on a sound copy; its name, time and settings stay as they are. An
  // empty name takes the name away. Throws FileError, also for what is no sound copy.
  void Note(const std::filesystem::path& file, const std::string& name, bool pinned) const;
  // Removes a plain file. Throws FileError, also for what is none: that is left alone.
  static void Remove(const std::filesystem::path& file);
  // Writes the same bytes to a file of the user's choice, which may be there already: whole, or
  // what was there stays. Throws FileError.
  void Export(const std::filesystem::path& file, const std::filesystem::path& to) const;

  // The newest sound copy.
  std::optional<RadioCopy> Newest(const std::string& folderName) const;

 private:
  std::filesystem::path MakeFolder(const std::string& folderName) const;
  void MakeRoom(const std::filesystem::path& added);
  void RemoveBeyondNumber(const std::string& folderName, const std::filesystem::path& added) const;
  void RemoveBeyondBytes(const std::filesystem::path& added);
  // Those under names of ours, oldest first, but for the one that was added just now and the newest
  // sound one, which must not go.
  std::vector<std::filesystem::path> OlderOf(const std::string& folderName,
                                             const std::filesystem::path& added) const;

  const ProgramFiles& files;
  CopyLimits limits;
  std::optional<std::uintmax_t> bytes;  // of all copies, as far as this program knows
};

}  // namespace quillmark
