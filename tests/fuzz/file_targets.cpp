#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "config/config_keys.h"
#include "config/config_lines.h"
#include "config/presets/preset_file.h"
#include "firmware/firmware_version.h"
#include "firmware/s_records.h"
#include "fuzz/fuzz_target.h"
#include "history/radio_copy.h"
#include "qt/store/ini_file.h"

namespace quillmark::fuzz {

namespace {

// A file in memory, for readers that want a path.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view content) : handle(memfd_create("fuzz", 0)) {
    Check(write(handle, content.data(), content.size()) == static_cast<ssize_t>(content.size()),
          "there is memory");
  }
  ~MemoryFile() { close(handle); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  std::filesystem::path Path() const { return "/proc/self/fd/" + std::to_string(handle); }

 private:
  int handle;
};

bool IsControl(char c) { return static_cast<unsigned char>(c) < 32; }

}  // namespace

void FeedConfigFile(std::string_view input) {
  const MemoryFile file(input);
  const ConfigText text = ReadConfigText(file.Path(), MostConfigLines);
  Check(text.Lines.size() <= MostConfigLines, "no more lines than asked for");
  for (const std::string& line : text.Lines) {
    Check(line.size() <= LongestConfigLine, "no line is too long");
    Check(std::none_of(line.begin(), line.end(), IsControl), "no control character is left");
    SettingOfLine(line);
    AlarmSenseValue(line);
    IsComment(line);
  }
  IsSavedConfig(text.Lines);
}

// What is read of it is a sound copy when it is written, and the texts of a radio are too.
void FeedCopy(std::string_view input) {
  const auto check = [](const RadioCopy& copy) {
    const std::string text = CopyText(copy, "1/1/2026", 0);
    const MemoryFile file(text);
    const KeptCopy again = CopyIn(ReadConfigText(file.Path(), 2 * MostConfigLines).Lines);
    Check(again.State == CopyState::Sound, "what is written is sound");
    Check(again.Copy.Lines == copy.Lines, "and holds the same settings");
  };
  const MemoryFile file(input);
  check(CopyIn(ReadConfigText(file.Path(), MostConfigLines).Lines).Copy);
  RadioTexts texts;
  for (const Setting& setting : AllSettings()) texts[setting.Id] = input;
  texts[SettingId::Mode] = "MODE M";
  check(CopyOf(AllSettings(), texts));
}

void FeedPresetFile(std::string_view input) {
  const MemoryFile file(input);
  const auto place = ReadPresetPlace(file.Path());
  Check(!place || place->Slot < PresetSlots, "a preset has one of the slots");
}

// In one piece or in many, the verdict is the same.
void FeedFirmware(std::string_view input) {
  SRecordCheck whole;
  whole.Take(input);
  SRecordCheck pieces;
  for (std::size_t at = 0; at < input.size(); at += 7) pieces.Take(input.substr(at, 7));
  const auto first = whole.Finish();
  const auto second = pieces.Finish();
  Check(first.has_value() == second.has_value(), "pieces do not change the verdict");
  Check(!first || (first->Line == second->Line && first->What == second->What),
        "pieces do not change the fault");
  const FirmwareHeader header = ReadFirmwareHeader(input.substr(0, FirmwareHeaderLength));
  VersionQuestions(header.Version, "3.2.0");
  VersionQuestions("3.2.0", header.Version);
}

// Whatever the text is, it takes a value and keeps it.
void FeedIniFile(std::string_view input) {
  IniFile file(input);
  file.Set("Preferences", "CommPort", " 7\t");
  const std::string* value = file.Value("Preferences", "CommPort");
  Check(value != nullptr && *value == " 7\t", "a value that was set is there");
  const IniFile changed(file.Text());
  value = changed.Value("Preferences", "CommPort");
  Check(value != nullptr && *value == " 7\t", "and also after it was written");
}

}  // namespace quillmark::fuzz
