#pragma once

#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/command.h"

namespace quillmark {

// What is watched at the radio, value by value; one that it does not tell is empty.
using Sample = std::vector<std::string>;

// How a watch is printed.
struct WatchForm {
  std::vector<std::string> Headings;  // of the columns for people
  std::size_t Joined = 1;             // so many values stand in one of these, "120/118/2"
  std::size_t Width = 8;              // of each
  std::vector<std::string> Names;     // of the values, for CSV and JSON
};

// Prints a line a second of what a radio tells, each at once: for people, as CSV, or as one JSON
// object a line. It runs inside a handler of the application, where nothing may be thrown.
class Watch {
 public:
  // `seconds`: so many lines' time from the first one on; 0: until it is ended.
  Watch(Workbench& bench, WatchForm form, bool csv, int seconds);

  // Goes on while `up` holds. `take` gives what the radio has told since it was asked last, or
  // nothing.
  void Run(const std::function<bool()>& up, const std::function<std::optional<Sample>()>& take);

  // Runs `act`, which runs the watch, and ends the command: a signal is its usual end once a line
  // was printed. Throws Failure and ReaderGone.
  Exit Finish(const std::function<void()>& act);

 private:
  bool Over() const;
  void Await(Duration time, const std::function<bool()>& up);
  void Print(const Sample& sample);
  void PrintLine(const Sample& sample);
  std::string Columns(const std::string& first, const std::vector<std::string>& cells) const;
  std::string JsonOf(const Sample& sample) const;

  Workbench& bench;
  const WatchForm form;
  const bool csv;
  const int seconds;
  std::string time;    // of the line that is next
  bool begun = false;  // the first line is printed
  int rounds = 0;      // since then
  bool silent = false;
  std::exception_ptr failure;
};

}  // namespace quillmark
