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

// Readers refuse longer lines, and with them the preset.
std::string HeaderLine(std::string_view key, const std::string& text) {
  return (std::string(key) + text).substr(0, LongestConfigLine);
}

// Under another name first, so that a preset that could not be written whole is none.
void WriteInOneStep(const fs::path& path, const std::vector<std::string>& lines) {
  fs::path unfinished = path;
  unfinished.replace_extension(".new");
  try {
    ReplacedFile file(unfinished, {});
    for (const std::string& line : lines) file.Line(line);
    file.Complete();
    MoveOver(unfinished, path);
  } catch (const FileError&) {
    std::error_code ignored;
    fs::remove(unfinished, ignored);
    throw;
  }
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
  std::vector<std::string> lines = WholeFile(configuration);
  const std::string head[] = {std::string(slotKey) + std::to_string(slot + 1),
                              HeaderLine(nameKey, header.Description),
                              HeaderLine(captionKey, header.Caption)};
  lines.insert(lines.begin(), std::begin(head), std::end(head));
  WriteInOneStep(path, lines);
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
  WriteInOneStep(path, lines);
}

}  // namespace quillmark
