#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/batch/batch_line.h"

namespace quillmark {

// A file of lines that grows. Each line is on the disk whole, or not in it. One program at a time
// has it.
class GrowingFile {
 public:
  // With `goOn` it may be there; a last line without its end is taken off. Throws Failure.
  GrowingFile(std::filesystem::path path, bool goOn);
  ~GrowingFile();
  GrowingFile(const GrowingFile&) = delete;
  GrowingFile& operator=(const GrowingFile&) = delete;

  std::string Text() const;
  // Throws Failure.
  void Append(const std::string& line) const;

 private:
  void Open(bool goOn);
  [[noreturn]] void Fail(const char* what) const;

  const std::filesystem::path path;
  int handle = -1;
};

// The report on a batch: a table in CSV, and the same as lines of JSON in a file beside it.
class BatchReport {
 public:
  // The files are `named` with the endings .csv and .jsonl. Throws Failure when they can't be
  // written, or are there already and it is not told to `goOn` with them.
  BatchReport(const std::filesystem::path& named, bool goOn);

  // Throws Failure.
  void Append(const BatchLine& line);
  // The last result of that radio is "done".
  bool Done(const std::string& serial) const;
  // How many radios are.
  std::size_t CountDone() const;

 private:
  GrowingFile table;
  GrowingFile json;
  std::vector<BatchLine> lines;
};

}  // namespace quillmark
