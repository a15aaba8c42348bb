#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

// The text of an INI file, line by line, so that a change keeps the user's comments and their
// order. Values are written as they are, or in quotes where blanks at their ends or control
// characters would be lost. Names are compared without regard to case. Texts are UTF-8. It knows no
// files.
class IniFile {
 public:
  static constexpr std::size_t LargestText = 1024 * 1024;  // bytes

  IniFile() = default;
  explicit IniFile(std::string_view text);

  // True when neither a user nor this program can have written the text: control characters, or
  // more than LargestText. Nothing of it is read then.
  bool Damaged() const { return damaged; }

  // Null when there is no such key. Valid until the next Set.
  const std::string* Value(std::string_view section, std::string_view key) const;
  void Set(const std::string& section, const std::string& key, const std::string& value);
  std::string Text() const;

 private:
  // One line of the file.
  struct Line {
    std::string Raw;
    std::string Section;  // that the line stands in
    std::string Key;      // empty when the line is no entry
    std::string Value;
  };

  Line ReadLine(std::string raw);

  std::vector<Line> lines;
  std::string section;  // of the line read last
  bool damaged = false;
};

}  // namespace quillmark
