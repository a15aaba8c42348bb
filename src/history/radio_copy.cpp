#include "history/radio_copy.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <utility>

#include "app/version.h"
#include "config/config_lines.h"
#include "config/direct_run.h"
#include "config/saved_settings.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostLines = 1000;
constexpr std::string_view mapWord = "XMAP ";

bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 32 || code == 127;
}

// The lines of a setting that only the store and restore window saves, in its form.
std::string RestoredLines(const Setting& setting, const std::string& text) {
  if (FindAnyCase(text, setting.Reply) != 1) return "";
  const std::size_t bracket = text.find('(');
  if (setting.Restored->Form != RestoreForm::Switched || bracket == std::string::npos) return text;
  return std::string(Trim(text.substr(0, bracket))) + "\r\n" + Upper(setting.Word) +
         (Holds(text, "(ON)") ? " ON" : " OFF");
}

// The setting's lines; nothing when there should be some, but can't.
std::optional<std::string> LinesOf(const Setting& setting, const std::string& text) {
  if (std::ranges::any_of(text, IsControl) || text.size() > LongestConfigLine / 2) {
    return std::nullopt;
  }
  try {
    return setting.Saved ? CutSetting(setting, AsReply(text)).value_or("")
                         : RestoredLines(setting, text);
  } catch (const RunFailed&) {
    return std::nullopt;
  }
}

void AddLines(std::vector<std::string>& lines, std::string text) {
  const std::size_t end = text.find("\r\n");
  if (end != std::string::npos) {
    lines.push_back(text.substr(0, end));
    text.erase(0, end + 2);
  }
  if (!text.empty()) lines.push_back(std::move(text));
}

std::vector<std::string> WithoutMap(std::vector<std::string> lines) {
  std::erase_if(lines, [](const std::string& line) { return line.starts_with(mapWord); });
  return lines;
}

// FNV-1a: it tells a line that somebody changed, and is no proof against one who wants to.
std::string Sum(const std::vector<std::string>& lines) {
  std::uint32_t sum = 2166136261U;
  const auto take = [&sum](char c) { sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U; };
  for (const std::string& line : lines) {
    std::ranges::for_each(line, take);
    take('\n');
  }
  char text[16];
  std::snprintf(text, sizeof text, "%08x", static_cast<unsigned>(sum));
  return text;
}

// The last line of a copy.
std::string EndLine(const std::vector<std::string>& lines) {
  return "#End of copy: " + std::to_string(lines.size()) + " lines, " + Sum(lines);
}

// A comment of the file: how it begins, and the member that the rest of it is.
struct Field {
  std::string_view Head;
  std::string RadioCopy::*Text;
  bool OfSave;  // a save has it too
};
constexpr std::string_view nameHead = "#Name: ";
constexpr Field fields[] = {
    {"#From Radio, serial number: ", &RadioCopy::Serial, true},
    {"#With Firmware Version:  ", &RadioCopy::Firmware, true},
    {"#Kept: ", &RadioCopy::Reason, false},
    {nameHead, &RadioCopy::Name, false},
};
constexpr std::string_view timeHead = "#Time: ";
constexpr std::string_view pinnedLine = "#Pinned";
constexpr std::string_view incompleteLine = "#Incomplete";
constexpr std::string_view endHead = "#End of copy: ";

// What the radio or the user says fits into a comment.
std::string InComment(std::string text) {
  constexpr std::size_t longest = 200;
  std::erase_if(text, IsControl);
  return text.substr(0, longest);
}

// A reader of files looks for the words of settings, which are capitals, in comments too. So no two
// capitals stand side by side in what is not a save's: "PORT" is "P^O^R^T".
constexpr char apart = '^';

bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }

std::string WithoutWords(const std::string& text) {
  std::string spaced;
  for (const char c : text) {
    if (c == apart) continue;
    if (IsCapital(c) && !spaced.empty() && IsCapital(spaced.back())) spaced += apart;
    spaced += c;
  }
  return spaced;
}

void TakeComment(RadioCopy& copy, const std::string& line) {
  for (const Field& field : fields) {
    if (!line.starts_with(field.Head)) continue;
    copy.*field.Text = line.substr(field.Head.size());
    if (!field.OfSave) std::erase(copy.*field.Text, apart);
  }
  if (line == pinnedLine) copy.Pinned = true;
  if (line == incompleteLine) copy.Complete = false;
}

}  // namespace

RadioCopy CopyOf(std::span<const Setting> settings, const RadioTexts& texts) {
  RadioCopy copy;
  const auto textOf = [&texts](SettingId id) {
    const auto at = texts.find(id);
    return at == texts.end() ? std::string() : at->second;
  };
  copy.Serial = textOf(SettingId::SerialNumber);
  copy.Firmware = SavedFirmware(textOf(SettingId::SoftwareRev));
  const bool master = IsOneOf(Modes::Master, textOf(SettingId::Mode));
  for (const Setting* setting : FileOrder(settings)) {
    const auto at = texts.find(setting->Id);
    const bool masterOnly = setting->Saved && setting->Saved->MasterOnly;
    if (at == texts.end() || (masterOnly && !master)) continue;
    const auto lines = LinesOf(*setting, at->second);
    if (!lines) copy.Complete = false;
    AddLines(copy.Lines, lines.value_or(""));
  }
  return copy;
}

bool SameSettings(const RadioCopy& a, const RadioCopy& b) {
  if (a.Firmware != b.Firmware || a.Complete != b.Complete) return false;
  if (a.Lines == b.Lines) return true;
  const auto withoutA = WithoutMap(a.Lines);
  const auto withoutB = WithoutMap(b.Lines);
  const bool bothHaveMap = withoutA.size() < a.Lines.size() && withoutB.size() < b.Lines.size();
  return !bothHaveMap && withoutA == withoutB;
}

std::string CopyText(const RadioCopy& copy, const std::string& date, std::int64_t utcSeconds) {
  std::string text = "#Created by Kelvor Quillmark Configuration Software Version ";
  text.append(VersionText).append("\r\n#On ").append(InComment(date)).append("\r\n");
  const auto line = [&text](std::string_view words) { text.append(words).append("\r\n"); };
  for (const Field& field : fields) {
    std::string words = InComment(copy.*field.Text);
    if (!field.OfSave) words = WithoutWords(words);
    if (!words.empty() || field.Text == &RadioCopy::Firmware) {
      line(std::string(field.Head) + words);
    }
  }
  line(std::string(timeHead) + TimeName(utcSeconds) + " UTC");
  if (copy.Pinned) line(pinnedLine);
  if (!copy.Complete) line(incompleteLine);
  line("");
  line("");
  for (const std::string& setting : copy.Lines) line(setting);
  line(EndLine(copy.Lines));
  return text;
}

std::string CopyName(std::string_view name) {
  std::string kept = InComment(std::string(name));
  std::erase(kept, apart);
  return std::string(Trim(std::string(Trim(kept)).substr(0, LongestCopyName)));
}

// Ahead of the first line that is no comment.
std::string WithNotes(const std::string& text, const std::string& name, bool pinned) {
  std::string notes;
  const std::string kept = WithoutWords(CopyName(name));
  if (!kept.empty()) notes.append(nameHead).append(kept).append("\r\n");
  if (pinned) notes.append(pinnedLine).append("\r\n");
  std::string changed;
  bool inHead = true;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    const std::size_t next = end == std::string::npos ? text.size() : end + 1;
    const std::string_view line = std::string_view(text).substr(at, next - at);
    if (std::exchange(inHead, inHead && IsComment(line)) && !inHead) changed += notes;
    const bool note =
        line.starts_with(nameHead) || line.substr(0, line.find_first_of("\r\n")) == pinnedLine;
    if (!inHead || !note) changed += line;
    at = next;
  }
  return changed;
}

KeptCopy ReadCopy(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(fs::symlink_status(file, error))) return {};
  const ConfigText text = ReadConfigText(file, mostLines);
  return text.Refusal.empty() ? CopyIn(text.Lines) : KeptCopy();
}

KeptCopy CopyIn(const std::vector<std::string>& lines) {
  KeptCopy kept;
  std::string endLine;
  for (const std::string& line : lines) {
    if (line.starts_with(endHead)) {
      endLine = line;
    } else if (IsComment(line)) {
      TakeComment(kept.Copy, line);
    } else if (!line.empty()) {
      kept.Copy.Lines.push_back(line);
    }
  }
  kept.State = endLine.empty()                       ? CopyState::CutShort
               : endLine == EndLine(kept.Copy.Lines) ? CopyState::Sound
                                                     : CopyState::Changed;
  return kept;
}

}  // namespace quillmark
