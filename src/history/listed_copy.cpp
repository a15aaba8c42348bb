#include "history/listed_copy.h"

#include <system_error>
#include <utility>

#include "config/config_lines.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

// What stands there in the place of a plain file; empty: one does.
std::string KindOf(const fs::path& path) {
  std::error_code error;
  switch (fs::symlink_status(path, error).type()) {
    case fs::file_type::regular:
      return "";
    case fs::file_type::symlink:
      return "a link, not followed";
    case fs::file_type::directory:
      return "a folder";
    case fs::file_type::not_found:
      return "gone";
    default:
      return "no plain file";
  }
}

std::string TroubleOf(CopyState state) {
  switch (state) {
    case CopyState::Sound:
      return "";
    case CopyState::CutShort:
      return "cut short";
    case CopyState::Changed:
      return "changed by hand";
    case CopyState::Unreadable:
      break;
  }
  return "can't be read";
}

std::string WhenOf(const fs::path& file, const Desktop& desktop) {
  const auto time = TimeOfName(file.stem().string());
  return time ? desktop.DateAndTime(*time) : PathText(file.filename());
}

std::string WordsOf(const ListedCopy& listed, const RadioCopy& copy) {
  std::string words;
  for (const std::string& part :
       {listed.When, listed.Trouble, copy.Serial, copy.Firmware, copy.Reason, copy.Name,
        std::string(copy.Pinned ? "pinned" : "")}) {
    words += part + "\n";
  }
  for (const std::string& line : copy.Lines) words += line + "\n";
  return Folded(words);
}

// The value alone: "30 dBm".
std::string Bare(const ComparedValue& value, const std::string& line) {
  if (line.empty()) return "(left out)";
  if (const auto sense = AlarmSenseValue(line)) return *sense;
  return std::string(
      Trim(std::string_view(line).substr(std::string_view(value.What->Word).size())));
}

// "PWR 30 dBm to 27 dBm"
std::string ChangeOf(const ComparedValue& value) {
  return Upper(value.What->Word) + " " + Bare(value, value.First) + " to " +
         Bare(value, value.Second);
}

bool Counts(const ComparedValue& value) {
  const bool leftOut = value.First.empty() || value.Second.empty();
  return !value.Same && !(leftOut && value.What->Id == SettingId::XMAP);
}

char Lower(char c) {
  const auto code = static_cast<unsigned char>(c);
  const bool capital =
      (code >= 'A' && code <= 'Z') || (code >= 0xC0 && code <= 0xDE && code != 0xD7);
  return capital ? static_cast<char>(code + 0x20) : c;
}

}  // namespace

std::string ListedCopy::Title() const {
  const std::string& about = Name.empty() ? Reason : Name;
  return about.empty() ? When : When + ", " + about;
}

ListedCopy ListCopy(const fs::path& file, const Desktop& desktop, ConfigValues* values) {
  ListedCopy listed{.File = file, .When = WhenOf(file, desktop), .Trouble = KindOf(file)};
  listed.Plain = listed.Trouble.empty();
  KeptCopy kept;
  if (listed.Plain) {
    kept = ReadCopy(file);
    listed.Trouble = TroubleOf(kept.State);
  }
  listed.Compares = kept.State == CopyState::Sound || kept.State == CopyState::Changed;
  listed.Reason = kept.Copy.Reason + (kept.Copy.Complete ? "" : " (incomplete)");
  listed.Name = kept.Copy.Name;
  listed.Pinned = kept.Copy.Pinned;
  listed.Words = WordsOf(listed, kept.Copy);
  if (values != nullptr && listed.Compares) *values = ValuesOf(kept.Copy.Lines);
  return listed;
}

void NoteChanges(ListedCopy& newer, const ConfigValues& now, const ConfigValues& before) {
  std::size_t number = 0;
  for (const ComparedValue& value : CompareValues(before, now)) {
    if (!Counts(value)) continue;
    const std::string change = ChangeOf(value);
    if (number++ == 0) newer.Changes = change;
    newer.AllChanges += (newer.AllChanges.empty() ? "" : "\r\n") + change;
  }
  if (number == 0) newer.Changes = "nothing";
  if (number > 1) newer.Changes += "; " + std::to_string(number - 1) + " more";
}

std::string Folded(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) c = Lower(c);
  return folded;
}

}  // namespace quillmark
