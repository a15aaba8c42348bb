#include "qt/store/ini_file.h"

#include <algorithm>

namespace quillmark {

namespace {

constexpr std::string_view blanks = " \t";

bool Control(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 32 || code == 127;
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool SameName(std::string_view left, std::string_view right) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&](char a, char b) { return lower(a) == lower(b); });
}

// A character between quotes. Control characters that no escape stands for are left out.
std::string Escaped(char c) {
  if (c == '\n') return "\\n";
  if (c == '\r') return "\\r";
  if (c == '"' || c == '\\') return {'\\', c};
  return c == '\t' || !Control(c) ? std::string(1, c) : std::string();
}

char Unescaped(char escaped) {
  if (escaped == 'n') return '\n';
  return escaped == 'r' ? '\r' : escaped;
}

std::string Quoted(const std::string& value) {
  const bool plain = Trimmed(value) == value && std::none_of(value.begin(), value.end(), Control) &&
                     !value.starts_with('"');
  if (plain) return value;
  std::string quoted = "\"";
  for (const char c : value) quoted += Escaped(c);
  return quoted + '"';
}

std::string Unquoted(std::string_view text) {
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') return std::string(text);
  text = text.substr(1, text.size() - 2);
  std::string value;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool escape = text[at] == '\\' && at + 1 < text.size();
    value += escape ? Unescaped(text[++at]) : text[at];
  }
  return value;
}

bool LooksDamaged(std::string_view text) {
  return text.size() > IniFile::LargestText || std::any_of(text.begin(), text.end(), [](char c) {
           return Control(c) && c != '\t' && c != '\r' && c != '\n';
         });
}

}  // namespace

IniFile::IniFile(std::string_view text) {
  damaged = LooksDamaged(text);
  if (damaged) return;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view raw = text.substr(0, end);
    while (raw.ends_with('\r')) raw.remove_suffix(1);
    lines.push_back(ReadLine(std::string(raw)));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

IniFile::Line IniFile::ReadLine(std::string raw) {
  const std::string_view text = Trimmed(raw);
  const auto equals = text.find('=');
  Line line;
  if (text.starts_with('[') && text.ends_with(']')) {
    section = Trimmed(text.substr(1, text.size() - 2));
  } else if (!text.starts_with(';') && !text.starts_with('#') && equals != std::string_view::npos) {
    line.Key = Trimmed(text.substr(0, equals));
    line.Value = Unquoted(Trimmed(text.substr(equals + 1)));
  }
  line.Section = section;
  line.Raw = std::move(raw);
  return line;
}

const std::string* IniFile::Value(std::string_view inSection, std::string_view key) const {
  // The last entry wins, as in other readers of such files.
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    if (!line->Key.empty() && SameName(line->Section, inSection) && SameName(line->Key, key)) {
      return &line->Value;
    }
  }
  return nullptr;
}

void IniFile::Set(const std::string& inSection, const std::string& key, const std::string& value) {
  const Line entry{key + "=" + Quoted(value), inSection, key, value};
  auto behind = lines.end();
  for (auto line = lines.begin(); line != lines.end(); ++line) {
    if (!SameName(line->Section, inSection)) continue;
    if (SameName(line->Key, key))
      behind = line;
    else if (behind == lines.end() || !SameName(behind->Key, key)) {
      if (!Trimmed(line->Raw).empty()) behind = line;
    }
  }
  if (behind == lines.end()) {
    if (!lines.empty()) lines.push_back({"", section, "", ""});
    section = inSection;
    lines.push_back({"[" + inSection + "]", inSection, "", ""});
    lines.push_back(entry);
  } else if (SameName(behind->Key, key)) {
    *behind = entry;
  } else {
    lines.insert(behind + 1, entry);
  }
}

std::string IniFile::Text() const {
  std::string text;
  for (const Line& line : lines) text += line.Raw + '\n';
  return text;
}

}  // namespace quillmark
