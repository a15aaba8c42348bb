#include "config/presets/preset_file.h"

#include <system_error>
#include <utility>

#include "config/config_lines.h"
#include "config/replaced_file.h"
#include "platform/utilities.h"
#include "text/numbers.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view slotKey = "#PresetFile";
constexpr std::string_view nameKey = "#Name:";
constexpr std::string_view captionKey = "#PresetCaption:";
// A preset may be longer than what can be sent; it is shown and changed all the same.
constexpr std::size_t mostPresetLines = 10'000;
constexpr const char* temporaryEnding = ".tmp";
constexpr const char* unfinishedEnding = ".new";

fs::path WithEnding(fs::path path, const char* ending) { return path.replace_extension(ending); }

// What stands behind the key, if the line begins with it.
std::optional<std::string> Behind(const std::string& line, std::string_view key) {
  if (FindAnyCase(line, key) != 1) return std::nullopt;
  return line.substr(key.size());
}

// All or nothing: a file that was read in part must not be written back.
std::vector<std::string> WholeFile(const fs::path& path) {
  ConfigText text = ReadConfigText(path, mostPresetLines);
  if (!text.Refusal.empty()) throw FileError(text.Refusal);
  return std::move(text.Lines);
}

// Readers refuse longer lines, and with them the preset.
std::string HeaderLine(std::string_view key, const std::string& text) {
  return (std::string(key) + text).substr(0, LongestConfigLine);
}

// What the file at `path` becomes: the one that is written anew, or another one beside it.
enum class OldPreset { Replaced, SetAside };

// Under another name first, so that a preset that could not be written whole is none.
void WriteInOneStep(const fs::path& path, const std::vector<std::string>& lines, OldPreset old) {
  const FileGuard unfinished(WithEnding(path, unfinishedEnding));
  // It has no old content to be kept.
  ReplacedFile file(unfinished.Path(), {});
  for (const std::string& line : lines) file.Line(line);
  file.Complete();
  if (old == OldPreset::SetAside && FileExists(path)) MoveOver(path, FreeBackupName(path));
  MoveOver(unfinished.Path(), path);
}

}  // namespace

fs::path PresetFolder(const ProgramFiles& files) { return files.Data() / "Presets"; }

fs::path PresetFile(const ProgramFiles& files, std::size_t slot) {
  return PresetFolder(files) / ("Preset" + std::to_string(slot + 1) + ".txt");
}

FileGuard::FileGuard(fs::path path) : guarded(std::move(path)) {
  std::error_code error;
  fs::remove(guarded, error);
  // Else an old one could pass for what is to be written now.
  if (error) throw FileError(PathText(guarded) + ": " + ErrorText(error));
}

FileGuard::~FileGuard() {
  std::error_code ignored;
  fs::remove(guarded, ignored);
}

fs::path PresetTemporary(const ProgramFiles& files, std::size_t slot) {
  return WithEnding(PresetFile(files, slot), temporaryEnding);
}

void RemovePresetLeftovers(const ProgramFiles& files) {
  for (std::size_t slot = 0; slot < PresetSlots; ++slot) {
    for (const char* ending : {temporaryEnding, unfinishedEnding}) {
      const fs::path leftover = WithEnding(PresetFile(files, slot), ending);
      std::error_code ignored;
      if (fs::is_directory(fs::symlink_status(leftover, ignored))) continue;
      fs::remove(leftover, ignored);
    }
  }
}

std::optional<PresetPlace> ReadPresetPlace(const fs::path& path) {
  std::optional<std::size_t> slot;
  PresetHeader header;
  for (const std::string& line : ReadConfigText(path, mostPresetLines).Lines) {
    if (const auto number = Behind(line, slotKey)) {
      const double value = NumericValue(*number).value_or(0);
      for (std::size_t each = 0; each < PresetSlots; ++each) {
        if (value == static_cast<double>(each + 1)) slot = each;
      }
    }
    if (const auto text = Behind(line, nameKey)) header.Description = *text;
    if (const auto text = Behind(line, captionKey)) header.Caption = *text;
  }
  if (!slot) return std::nullopt;
  return PresetPlace{*slot, header};
}

void WritePreset(const fs::path& path, std::size_t slot, const PresetHeader& header,
                 const fs::path& configuration) {
  WritePreset(path, slot, header, WholeFile(configuration));
}

void WritePreset(const fs::path& path, std::size_t slot, const PresetHeader& header,
                 std::vector<std::string> lines) {
  std::erase_if(lines, [](const std::string& line) {
    return Behind(line, slotKey) || Behind(line, nameKey) || Behind(line, captionKey);
  });
  const std::string head[] = {std::string(slotKey) + std::to_string(slot + 1),
                              HeaderLine(nameKey, header.Description),
                              HeaderLine(captionKey, header.Caption)};
  lines.insert(lines.begin(), std::begin(head), std::end(head));
  WriteInOneStep(path, lines, OldPreset::SetAside);
}

void ChangePreset(const fs::path& path, PresetLine line, const std::string& text) {
  if (!FileExists(path)) return;
  const std::string_view key = line == PresetLine::Caption ? captionKey : nameKey;
  const std::string changed = HeaderLine(key, text);
  std::vector<std::string> lines = WholeFile(path);
  bool found = false;
  for (std::string& each : lines) {
    if (!Behind(each, key)) continue;
    each = changed;
    found = true;
  }
  if (!found) lines.insert(lines.begin(), changed);
  WriteInOneStep(path, lines, OldPreset::Replaced);
}

}  // namespace quillmark
