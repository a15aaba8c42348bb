#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "history/listed_copy.h"
#include "platform/desktop.h"
#include "platform/event_loop.h"

namespace quillmark {

// Ends a piece of work that must not hold up the window: after some ms, or so many files.
class Slice {
 public:
  explicit Slice(const EventLoop& clock);
  // One more file has been read. False when the slice is over.
  bool GoesOn();

 private:
  const EventLoop& clock;
  Duration end;
  int files = 0;
};

// Reads the copies of one radio, newest first, in slices, and tells what has changed from copy to
// copy.
class CopyReader {
 public:
  explicit CopyReader(const Desktop& desktop) : desktop(desktop) {}

  // Forgets what was read. What is beyond the newest 5000 is left out: nobody keeps so many.
  void Begin(std::vector<std::filesystem::path> newestFirst);
  bool Done() const { return copies.size() == files.size(); }
  void Step(Slice slice);

  // Those that have been read. The last one may still get its changes.
  const std::vector<std::shared_ptr<ListedCopy>>& Copies() const { return copies; }
  // How many were left out.
  std::size_t LeftOut() const { return leftOut; }

 private:
  void Take(const std::shared_ptr<ListedCopy>& copy, ConfigValues values);

  const Desktop& desktop;
  std::vector<std::filesystem::path> files;
  std::size_t leftOut = 0;
  std::vector<std::shared_ptr<ListedCopy>> copies;
  // The oldest one so far that compares, whose changes are not known yet; null without one.
  std::shared_ptr<ListedCopy> pending;
  ConfigValues pendingValues;
};

// Looks for words in the copies of all radios, in slices: which radios have a copy with them?
class CopySearch {
 public:
  explicit CopySearch(const Desktop& desktop) : desktop(desktop) {}

  // The files of one radio, under the name of its folder.
  struct Place {
    std::string Folder;
    std::vector<std::filesystem::path> Files;
  };
  // Begins anew. Without words every radio has some.
  void Begin(std::string foldedWords, std::vector<Place> places);
  bool Done() const { return place == places.size(); }
  void Step(Slice slice);

  bool Wanted() const { return !words.empty(); }
  bool Found(const std::string& folder) const { return !Wanted() || found.contains(folder); }
  bool Fits(const ListedCopy& copy) const { return copy.Words.find(words) != std::string::npos; }

 private:
  const Desktop& desktop;
  std::string words;
  std::vector<Place> places;
  std::size_t place = 0, file = 0;  // the next one to look at
  std::set<std::string> found;      // folders
};

}  // namespace quillmark
