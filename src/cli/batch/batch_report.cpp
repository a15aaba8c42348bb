#include "cli/batch/batch_report.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <set>
#include <utility>

#include "cli/batch/csv_text.h"
#include "cli/exit_codes.h"
#include "cli/printer.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

std::filesystem::path WithEnding(std::filesystem::path named, const char* ending) {
  return named.replace_extension(ending);
}

std::string Heading() {
  std::vector<std::string> names;
  names.reserve(BatchColumns.size());
  for (const BatchColumn& column : BatchColumns) names.emplace_back(column.Name);
  return CsvLine(names);
}

}  // namespace

GrowingFile::GrowingFile(std::filesystem::path named, bool goOn) : path(std::move(named)) {
  try {
    Open(goOn);
  } catch (const Failure&) {
    if (handle >= 0) close(handle);
    throw;
  }
}

GrowingFile::~GrowingFile() { close(handle); }

void GrowingFile::Open(bool goOn) {
  constexpr mode_t usual = 0666;
  handle = open(
      path.c_str(),
      O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | (goOn ? 0 : O_EXCL), usual);
  if (handle < 0 && errno == EEXIST) {
    throw Failure{Exit::BadFile, "The report " + PathText(path) + " is there already.",
                  "\"--resume\" goes on with it."};
  }
  if (handle < 0) Fail("can't be opened");
  struct stat found {};
  if (fstat(handle, &found) != 0 || !S_ISREG(found.st_mode)) {
    throw Failure{Exit::BadFile, "The report " + PathText(path) + " is no plain file."};
  }
  if (flock(handle, LOCK_EX | LOCK_NB) != 0) Fail("is in use by another batch");
  const std::string text = Text();
  const std::size_t whole = text.rfind('\n') + 1;  // 0 if there is none
  if (whole != text.size() && ftruncate(handle, static_cast<off_t>(whole)) != 0) {
    Fail("can't be written");
  }
}

std::string GrowingFile::Text() const {
  std::string text;
  std::array<char, 65536> piece{};
  for (;;) {
    const auto at = static_cast<off_t>(text.size());
    const ssize_t count = pread(handle, piece.data(), piece.size(), at);
    if (count < 0) Fail("can't be read");
    if (count == 0) return text;
    text.append(piece.data(), static_cast<std::size_t>(count));
  }
}

void GrowingFile::Append(const std::string& text) const {
  const std::string line = text + "\n";
  struct stat before {};
  if (fstat(handle, &before) != 0) Fail("can't be written");
  const ssize_t count = write(handle, line.data(), line.size());
  if (count == static_cast<ssize_t>(line.size()) && fsync(handle) == 0) return;
  const int error = count < 0 || errno != 0 ? errno : ENOSPC;
  [[maybe_unused]] const int cut = ftruncate(handle, before.st_size);
  errno = count >= 0 && count < static_cast<ssize_t>(line.size()) ? ENOSPC : error;
  Fail("could not be written");
}

void GrowingFile::Fail(const char* what) const {
  throw Failure{Exit::BadFile, "The report " + PathText(path) + " " + what + ": " +
                                   ErrorText({errno, std::generic_category()}) + "."};
}

BatchReport::BatchReport(const std::filesystem::path& named, bool goOn)
    : table(WithEnding(named, ".csv"), goOn), json(WithEnding(named, ".jsonl"), goOn) {
  const auto rows = CsvRows(table.Text());
  if (rows.empty()) {
    table.Append(Heading());
    return;
  }
  if (CsvLine(rows.front()) != Heading()) {
    throw Failure{Exit::BadFile, PathText(WithEnding(named, ".csv")) + " is no report of a batch."};
  }
  for (std::size_t i = 1; i < rows.size(); ++i) lines.push_back(LineOf(rows[i]));
}

void BatchReport::Append(const BatchLine& line) {
  lines.push_back(line);
  table.Append(CsvLine(FieldsOf(line)));
  json.Append(JsonOf(line));
}

bool BatchReport::Done(const std::string& serial) const {
  bool done = false;
  for (const BatchLine& line : lines) {
    if (line.Serial == serial) done = line.Result == ResultDone;
  }
  return done;
}

std::size_t BatchReport::CountDone() const {
  std::set<std::string> serials;
  for (const BatchLine& line : lines) {
    if (Done(line.Serial)) serials.insert(line.Serial);
  }
  return serials.size();
}

}  // namespace quillmark
