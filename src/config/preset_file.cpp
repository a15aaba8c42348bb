#include "config/preset_file.h"

#include <system_error>

#include "config/config_lines.h"
#include "config/replaced_file.h"
#include "prefs/utilities.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view slotKey = "#PresetFile";
constexpr std::string_view nameKey = "#Name:";
constexpr std::string_view captionKey = "#PresetCaption:";
// A preset may be longer than what can be sent; it is shown and changed all the same.
constexpr std::size_t mostPresetLines = 10'000;

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

}  // namespace

fs::path PresetFolder(const ProgramFiles& files) { return files.Data() / "Presets"; }

fs::path PresetFile(const ProgramFiles& files, std::size_t slot) {
  return PresetFolder(files) / ("Preset" + std::to_string(slot + 1) + ".txt");
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
  const std::vector<std::string> lines = WholeFile(configuration);
  ReplacedFile file(path);
  file.Line(std::string(slotKey) + std::to_string(slot + 1));
  file.Line(std::string(nameKey) + header.Description);
  file.Line(std::string(captionKey) + header.Caption);
  for (const std::string& line : lines) file.Line(line);
  file.Complete();
}

void ChangePreset(const fs::path& path, PresetLine line, const std::string& text) {
  if (!FileExists(path)) return;
  const std::string_view key = line == PresetLine::Caption ? captionKey : nameKey;
  const std::string changed = std::string(key) + text;
  std::vector<std::string> lines = WholeFile(path);
  bool found = false;
  for (std::string& each : lines) {
    if (!Behind(each, key)) continue;
    each = changed;
    found = true;
  }
  if (!found) lines.insert(lines.begin(), changed);
  fs::path temporary = path;
  temporary.replace_extension(".tmp");
  ReplacedFile file(temporary);
  for (const std::string& each : lines) file.Line(each);
  file.Complete();
  MoveOver(temporary, path);
}

}  // namespace quillmark
