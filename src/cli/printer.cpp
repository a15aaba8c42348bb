#include "cli/printer.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "cli/exit_codes.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

// In characters: bytes that continue one don't count.
std::size_t WidthOf(const std::string& utf8) {
  return static_cast<std::size_t>(std::ranges::count_if(
      utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace

void Printer::Line(const std::string& text) const {
  const std::string line = text + "\n";
  const bool whole =
      std::fwrite(line.data(), 1, line.size(), stdout) == line.size() && std::fflush(stdout) == 0;
  if (whole) return;
  const int error = errno;
  if (error == EPIPE) throw ReaderGone{};
  throw Failure{Exit::BadFile, "The result could not be written to standard output: " +
                                   ErrorText({error, std::generic_category()}) + "."};
}

void Printer::Table(const std::vector<std::vector<std::string>>& rows) const {
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], WidthOf(row[i]));
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i] + std::string(widths[i] + 2 - WidthOf(row[i]), ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    Line(line);
  }
}

std::string CsvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) line += ',';
    if (field.find_first_of(",\"\r\n") == std::string::npos) {
      line += field;
      continue;
    }
    line += '"';
    for (const char c : field) line += c == '"' ? std::string("\"\"") : std::string(1, c);
    line += '"';
  }
  return line;
}

}  // namespace quillmark
