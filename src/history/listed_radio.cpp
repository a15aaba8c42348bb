#include "history/listed_radio.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "text/text.h"

namespace quillmark {

namespace {

// What stands behind the word of a copy's line, "UNIT 12345"; empty without such a line.
std::string ValueIn(const RadioCopy& copy, std::string_view head) {
  const auto fits = [head](const std::string& line) { return line.starts_with(head); };
  const auto line = std::ranges::find_if(copy.Lines, fits);
  return line == copy.Lines.end() ? "" : std::string(Trim(line->substr(head.size())));
}

// Files under other names than times tell nothing of when the radio was read.
std::string LastCopy(const std::vector<std::filesystem::path>& newestFirst,
                     const Desktop& desktop) {
  for (const auto& file : newestFirst) {
    if (const auto time = TimeOfName(file.stem().string())) return desktop.DateAndTime(*time);
  }
  return "";
}

}  // namespace

std::vector<ListedRadio> ListRadios(const CopyStore& store, const Desktop& desktop) {
  std::vector<ListedRadio> radios;
  for (const std::string& folder : store.Radios()) {
    ListedRadio radio{.Folder = folder, .Files = store.FilesOf(folder), .Row = {}};
    if (radio.Files.empty()) continue;
    std::ranges::reverse(radio.Files);
    const RadioCopy newest = store.Newest(folder).value_or(RadioCopy{});
    radio.Row.Cells = {folder, ValueIn(newest, "UNIT "), ValueIn(newest, "OWN "),
                       LastCopy(radio.Files, desktop)};
    radios.push_back(std::move(radio));
  }
  return radios;
}

}  // namespace quillmark
