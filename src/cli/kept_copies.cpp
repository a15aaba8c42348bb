#include "cli/kept_copies.h"

#include <algorithm>
#include <string_view>

#include "cli/exit_codes.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

constexpr std::string_view timeForm = "0000-00-00_00-00-00";

// The date as names of copies are written, or empty when it is none.
std::string NameForm(std::string date) {
  for (char& c : date) c = c == ':' ? '-' : c == 'T' || c == ' ' ? '_' : c;
  constexpr std::size_t wholeDay = 10;
  // Up to a whole day, hour, minute or second.
  if (date.size() < wholeDay || date.size() > timeForm.size() || (date.size() - wholeDay) % 3 != 0)
    return {};
  // A date that is a whole time tells whether there is such a day and such an hour.
  const std::string whole = date + std::string(timeForm.substr(date.size()));
  return TimeOfName(whole) ? date : "";
}

const char* TroubleOf(CopyState state) {
  switch (state) {
    case CopyState::CutShort:
      return "is cut short";
    case CopyState::Changed:
      return "was changed by hand";
    case CopyState::Unreadable:
    case CopyState::Sound:
      break;
  }
  return "can't be read";
}

}  // namespace

std::string CopiesOf(const CopyStore& store, const std::string& serial) {
  const auto radios = store.Radios();
  std::string folder = FolderName(serial.starts_with("SN") ? serial : "SN " + serial);
  if (!folder.empty() && std::ranges::find(radios, folder) != radios.end()) return folder;
  throw Failure{Exit::BadFile, "There are no copies of such a radio.",
                "\"quillmark history\" lists the radios."};
}

ChosenCopy CopyAt(const CopyStore& store, const std::string& serial, const std::string& date) {
  const std::string last = NameForm(date);
  if (last.empty()) {
    throw Failure{Exit::Usage, "A date is written as 2026-11-23 or 2026-11-23T15:04:05, in UTC."};
  }
  const std::string folder = CopiesOf(store, serial);
  auto files = store.FilesOf(folder);
  std::erase_if(files, [&last](const std::filesystem::path& file) {
    const std::string stem = PathText(file.stem());
    return !TimeOfName(stem) || stem.substr(0, last.size()) > last;
  });
  const std::string cure = "\"quillmark history " + folder + "\" lists its copies.";
  if (files.empty()) {
    throw Failure{Exit::BadFile, "There is no copy of this radio from then or before.", cure};
  }
  ChosenCopy chosen{files.back(), PathText(files.back().stem()), {}};
  const KeptCopy kept = ReadCopy(chosen.File);
  if (kept.State != CopyState::Sound) {
    throw Failure{Exit::BadFile,
                  "The copy " + chosen.Time + " " + TroubleOf(kept.State) + ". Nothing was sent.",
                  cure};
  }
  chosen.Copy = kept.Copy;
  return chosen;
}

}  // namespace quillmark
