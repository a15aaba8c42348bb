#include "cli/batch/csv_text.h"

#include <utility>

namespace quillmark {

namespace {

using Row = std::vector<std::string>;

// Takes the text character by character.
class CsvCutter {
 public:
  explicit CsvCutter(char between) : separator(between) {}

  void Take(char c) {
    // Two quotes inside of quotes are one.
    if (c == '"') {
      if (!quoted && quoteJustEnded) field += c;
      quoteJustEnded = std::exchange(quoted, !quoted);
      return;
    }
    quoteJustEnded = false;
    if (!quoted && c == separator) {
      EndField();
    } else if (!quoted && (c == '\n' || c == '\r')) {
      EndRow();
    } else {
      field += c;
    }
  }
  std::vector<Row> Finish() {
    EndRow();
    return std::move(rows);
  }

 private:
  void EndField() { row.push_back(std::exchange(field, {})); }
  void EndRow() {
    if (row.empty() && field.empty()) return;
    EndField();
    rows.push_back(std::exchange(row, {}));
  }

  const char separator;
  std::string field;
  Row row;
  std::vector<Row> rows;
  bool quoted = false;
  bool quoteJustEnded = false;
};

}  // namespace

std::vector<Row> CsvRows(std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  const bool commas = text.substr(0, text.find('\n')).find(',') != std::string_view::npos;
  const bool semicolons = text.substr(0, text.find('\n')).find(';') != std::string_view::npos;
  CsvCutter cutter(semicolons && !commas ? ';' : ',');
  for (const char c : text) cutter.Take(c);
  return cutter.Finish();
}

}  // namespace quillmark
