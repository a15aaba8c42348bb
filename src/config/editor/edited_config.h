#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/setting.h"
#include "config/judged_lines.h"

namespace quillmark {

// A configuration file that is being edited, setting by setting. What is not edited keeps its
// bytes: comments, unknown lines, line ends. A setting that the file lacks gets its line where a
// save has it.
class EditedConfig {
 public:
  EditedConfig() = default;
  // Of the whole file.
  explicit EditedConfig(const std::string& bytes);

  // What stands behind the setting's word, "30 dBm"; both parts of a value that has two, "19200
  // ON". Empty when the file lacks it.
  std::string Value(const Setting& setting) const;
  // With or without the setting's word in front. An empty one takes the setting out of the file;
  // the one that the file had is no edit.
  void SetValue(const Setting& setting, const std::string& value);
  bool Changed() const { return !edits.empty(); }

  // The file with its edits: as the readers of configurations see it, and as it is saved.
  std::vector<std::string> Lines() const;
  std::string Bytes() const;
  // The lines that set something, and what is wrong with them, for the revision of the header.
  std::vector<SentLine> Judged() const;
  // That of the radio that the file was saved from, by its header; unknown without one.
  const Revision& FileRevision() const { return revision; }

 private:
  struct Line {
    std::string Text;  // as the readers see it
    std::string Raw;   // with its line end
    std::optional<SettingId> Sets{};
  };

  std::string OwnValue(const Setting& setting) const;
  std::vector<Line> Edited() const;
  void Apply(std::vector<Line>& edited, const Setting& setting, const std::string& value) const;
  void Insert(std::vector<Line>& edited, std::size_t place, const Setting& setting,
              const std::vector<std::string>& made) const;
  static std::vector<std::size_t> PlacesOf(const std::vector<Line>& lines, SettingId id);
  static std::size_t PlaceFor(const std::vector<Line>& lines, const Setting& setting);

  std::string mark;  // the byte-order mark at the head, if any
  std::vector<Line> lines;
  std::string lineEnd = "\r\n";
  Revision revision;
  std::map<SettingId, std::string> own;  // the values of the file
  std::map<SettingId, std::string> edits;
};

}  // namespace quillmark
