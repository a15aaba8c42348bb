#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/program_files.h"

namespace quillmark {

// A preset's file: three lines of its own in front of a configuration file. Slots count from 0, the
// numbers in files and their names from 1.

inline constexpr std::size_t PresetSlots = 6;

struct PresetHeader {
  std::string Description;
  std::string Caption;
};

std::filesystem::path PresetFolder(const ProgramFiles& files);
// A slot's file; it may not exist.
std::filesystem::path PresetFile(const ProgramFiles& files, std::size_t slot);

// What the radio is read into before a save to that slot.
std::filesystem::path PresetTemporary(const ProgramFiles& files, std::size_t slot);
// Removes the half-made files of a program that was killed in the middle of a save.
void RemovePresetLeftovers(const ProgramFiles& files);

// A file that is gone at the end, however that comes about, and is not there at the start either.
class FileGuard {
 public:
  // Throws FileError when something stands there that can't be removed.
  explicit FileGuard(std::filesystem::path path);
  ~FileGuard();
  FileGuard(const FileGuard&) = delete;
  FileGuard& operator=(const FileGuard&) = delete;

  const std::filesystem::path& Path() const { return guarded; }

 private:
  std::filesystem::path guarded;
};

// Where a file's header says that it belongs, and what it shows there. Nothing for a file without
// a slot's number.
struct PresetPlace {
  std::size_t Slot;
  PresetHeader Header;
};
std::optional<PresetPlace> ReadPresetPlace(const std::filesystem::path& path);

// Writes a preset: its header, then the configuration line by line. A file that stands there is
// moved to a free ".bak" name when the new one is complete. Throws FileError.
void WritePreset(const std::filesystem::path& path, std::size_t slot, const PresetHeader& header,
                 const std::filesystem::path& configuration);
// The same for the lines of a configuration. If they are a preset's its own header goes.
void WritePreset(const std::filesystem::path& path, std::size_t slot, const PresetHeader& header,
                 std::vector<std::string> lines);

// Changes the caption or the description in a file; the file is replaced in one step. A header that
// lacks the line gets it. Does nothing when there is no file. Throws FileError.
enum class PresetLine { Caption, Description };
void ChangePreset(const std::filesystem::path& path, PresetLine line, const std::string& text);

}  // namespace quillmark
