#include "config/editor/edited_config.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

#include "catalogue/settings.h"
#include "config/config_lines.h"
#include "config/config_values.h"
#include "config/saved_settings.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
// A save has the radio's own wording here.
const std::string alarmSenseHead = "ALARM ACTIVE";

bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 32 || code == 127;
}

// How many bytes the line has that begins there, its end included.
std::size_t LengthOfLine(std::string_view bytes) {
  const std::size_t end = bytes.find_first_of("\r\n");
  if (end == std::string_view::npos) return bytes.size();
  return end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1);
}

std::string EndOf(const std::string& raw) {
  const std::size_t end = raw.find_first_of("\r\n");
  return end == std::string::npos ? "" : raw.substr(end);
}

bool HasTwoParts(const Setting& setting) {
  return setting.Value.Form == ValueForm::Rate || setting.Value.Form == ValueForm::Switched;
}

// What stands behind the word of a line that sets the setting.
std::string BehindWord(const Setting& setting, const std::string& line) {
  if (const auto sense = AlarmSenseValue(line)) return *sense;
  const std::size_t word = std::string_view(setting.Word).size();
  if (setting.Value.Form == ValueForm::Text) return line.substr(std::min(word + 1, line.size()));
  return std::string(Trim(std::string_view(line).substr(word)));
}

// The word in front of a value, as a save has it.
std::string SavedHead(const Setting& setting) {
  return (setting.Id == SettingId::AlarmSense ? alarmSenseHead : Upper(setting.Word)) + " ";
}

// An answer may repeat the word of its setting.
std::string WithoutWord(const Setting& setting, const std::string& value) {
  if (setting.Value.Form == ValueForm::Text) return value;
  if (const auto sense = AlarmSenseValue(value)) return *sense;
  const std::string head = std::string(setting.Word) + " ";
  std::string bare = FindAnyCase(value, head) == 1 ? value.substr(head.size()) : value;
  // As the radio prints it: "19200 (ON)".
  if (setting.Value.Form == ValueForm::Switched) {
    std::erase_if(bare, [](char c) { return c == '(' || c == ')'; });
  }
  return std::string(Trim(bare));
}

// Puts another value behind the word of a line, which stays as it is written.
std::string WithValue(const Setting& setting, const std::string& line, const std::string& made) {
  const std::size_t word =
      AlarmSenseValue(line) ? alarmSenseHead.size() : std::string_view(setting.Word).size();
  const char* between = line.substr(word, 1) == ":" ? ": " : " ";
  return line.substr(0, word) + between + made.substr(SavedHead(setting).size());
}

// The lines of a value: one, or two for a value that is also switched. None for an empty one.
std::vector<std::string> LinesOf(const Setting& setting, const std::string& value) {
  if (value.empty()) return {};
  const std::string head = SavedHead(setting);
  const std::size_t blank = value.find(' ');
  if (setting.Value.Form != ValueForm::Switched || blank == std::string::npos) {
    return {head + value};
  }
  return {head + value.substr(0, blank), head + std::string(Trim(value.substr(blank)))};
}

// The words of a line, and those of the next: the restore window's files have the firmware there.
Revision RevisionIn(const std::vector<std::string>& lines) {
  const auto header = std::ranges::find_if(
      lines, [](const std::string& line) { return Contains(line, "With Firmware Version:"); });
  constexpr std::ptrdiff_t most = 3;
  const auto end = lines.end() - header > most ? header + most : lines.end();
  for (auto line = header; line != end; ++line) {
    for (std::string_view rest = Trim(*line); !rest.empty(); rest = Trim(rest)) {
      const std::string_view word = rest.substr(0, rest.find(' '));
      if (HasVersionForm(word)) return RevisionOf(word);
      rest.remove_prefix(word.size());
    }
  }
  return {};
}

}  // namespace

EditedConfig::EditedConfig(const std::string& bytes) {
  std::string_view rest = bytes;
  if (rest.starts_with(byteOrderMark)) {
    mark = byteOrderMark;
    rest.remove_prefix(mark.size());
  }
  while (!rest.empty()) {
    const std::string raw(rest.substr(0, LengthOfLine(rest)));
    rest.remove_prefix(raw.size());
    std::string text = raw;
    std::erase_if(text, IsControl);
    lines.push_back({text, raw});
  }
  if (!lines.empty() && !EndOf(lines.front().Raw).empty()) lineEnd = EndOf(lines.front().Raw);
  revision = RevisionIn(Lines());
  const std::vector<SentLine> sent = Judged();
  for (const SentLine& line : sent) lines[line.Number - 1].Sets = line.Sets->Id;
  for (const auto& [id, line] : ValuesOf(sent)) own[id] = BehindWord(SettingOf(id), line);
}

std::string EditedConfig::OwnValue(const Setting& setting) const {
  const auto found = own.find(setting.Id);
  return found == own.end() ? "" : found->second;
}

std::string EditedConfig::Value(const Setting& setting) const {
  const auto found = edits.find(setting.Id);
  return found == edits.end() ? OwnValue(setting) : found->second;
}

void EditedConfig::SetValue(const Setting& setting, const std::string& value) {
  const std::string next = WithoutWord(setting, value);
  if (next == OwnValue(setting)) {
    edits.erase(setting.Id);
  } else {
    edits[setting.Id] = next;
  }
}

std::vector<std::size_t> EditedConfig::PlacesOf(const std::vector<Line>& lines, SettingId id) {
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < lines.size(); ++place) {
    if (lines[place].Sets == id) places.push_back(place);
  }
  return places;
}

// Where a save would have it: behind the settings that stand ahead of it, else before the others.
std::size_t EditedConfig::PlaceFor(const std::vector<Line>& lines, const Setting& setting) {
  const std::vector<const Setting*> order = FileOrder(AllSettings());
  const auto at = std::ranges::find(order, setting.Id, &Setting::Id);
  for (auto before = at; before != order.begin();) {
    const auto places = PlacesOf(lines, (*--before)->Id);
    if (!places.empty()) return places.back() + 1;
  }
  for (auto behind = at; behind != order.end(); ++behind) {
    const auto places = PlacesOf(lines, (*behind)->Id);
    if (!places.empty()) return places.front();
  }
  return lines.size();
}

void EditedConfig::Apply(std::vector<Line>& edited, const Setting& setting,
                         const std::string& value) const {
  const std::vector<std::string> made = LinesOf(setting, value);
  std::vector<std::size_t> places = PlacesOf(edited, setting.Id);
  // Of several lines the last one counts.
  if (made.size() == 1 && !HasTwoParts(setting) && places.size() > 1) places = {places.back()};
  if (made.size() == places.size()) {
    for (std::size_t i = 0; i < made.size(); ++i) {
      Line& line = edited[places[i]];
      line.Text = WithValue(setting, line.Text, made[i]);
      line.Raw = line.Text + EndOf(line.Raw);
    }
    return;
  }
  const std::size_t place = places.empty() ? PlaceFor(edited, setting) : places.front();
  for (auto old = places.rbegin(); old != places.rend(); ++old) {
    edited.erase(edited.begin() + static_cast<std::ptrdiff_t>(*old));
  }
  Insert(edited, place, setting, made);
}

void EditedConfig::Insert(std::vector<Line>& edited, std::size_t place, const Setting& setting,
                          const std::vector<std::string>& made) const {
  if (made.empty()) return;
  if (place > 0 && EndOf(edited[place - 1].Raw).empty()) edited[place - 1].Raw += lineEnd;
  for (const std::string& text : made) {
    edited.insert(edited.begin() + static_cast<std::ptrdiff_t>(place++),
                  {text, text + lineEnd, setting.Id});
  }
}

std::vector<EditedConfig::Line> EditedConfig::Edited() const {
  std::vector<Line> edited = lines;
  for (const Setting* setting : FileOrder(AllSettings())) {
    const auto edit = edits.find(setting->Id);
    if (edit != edits.end()) Apply(edited, *setting, edit->second);
  }
  return edited;
}

std::vector<std::string> EditedConfig::Lines() const {
  std::vector<std::string> texts;
  for (const Line& line : Edited()) texts.push_back(line.Text);
  return texts;
}

std::string EditedConfig::Bytes() const {
  std::string bytes = mark;
  for (const Line& line : Edited()) bytes += line.Raw;
  return bytes;
}

std::vector<SentLine> EditedConfig::Judged() const { return SentLines(Lines(), revision, {}); }

}  // namespace quillmark
