#include "history/copy_reader.h"

#include <utility>

namespace quillmark {

namespace {

constexpr Duration longestSlice = Milliseconds(40);
constexpr int mostFiles = 1000;
constexpr std::size_t mostListed = 5000;

}  // namespace

Slice::Slice(const EventLoop& itsClock) : clock(itsClock), end(clock.Now() + longestSlice) {}

bool Slice::GoesOn() { return ++files < mostFiles && clock.Now() < end; }

void CopyReader::Begin(std::vector<std::filesystem::path> newestFirst) {
  leftOut = newestFirst.size() > mostListed ? newestFirst.size() - mostListed : 0;
  newestFirst.resize(newestFirst.size() - leftOut);
  files = std::move(newestFirst);
  copies.clear();
  pending.reset();
  pendingValues.clear();
}

void CopyReader::Step(Slice slice) {
  while (!Done()) {
    ConfigValues values;
    const auto copy =
        std::make_shared<ListedCopy>(ListCopy(files[copies.size()], desktop, &values));
    Take(copy, std::move(values));
    if (!slice.GoesOn()) return;
  }
}

void CopyReader::Take(const std::shared_ptr<ListedCopy>& copy, ConfigValues values) {
  copies.push_back(copy);
  if (!copy->Compares) return;
  if (pending) NoteChanges(*pending, pendingValues, values);
  pending = copy;
  pendingValues = std::move(values);
}

void CopySearch::Begin(std::string foldedWords, std::vector<Place> all) {
  words = std::move(foldedWords);
  places = Wanted() ? std::move(all) : std::vector<Place>();
  place = file = 0;
  found.clear();
}

// The first copy that fits is enough of a radio.
void CopySearch::Step(Slice slice) {
  while (!Done()) {
    const Place& at = places[place];
    if (file == at.Files.size() || found.contains(at.Folder)) {
      ++place;
      file = 0;
      continue;
    }
    if (Fits(ListCopy(at.Files[file++], desktop, nullptr))) found.insert(at.Folder);
    if (!slice.GoesOn()) return;
  }
}

}  // namespace quillmark
