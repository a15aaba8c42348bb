#include "cli/batch/batch_files.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "cli/batch/csv_text.h"
#include "cli/config_file.h"
#include "cli/exit_codes.h"
#include "cli/utf8.h"
#include "config/config_lines.h"
#include "platform/utilities.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;
using Values = std::map<std::string, std::string>;  // by the column in capitals; UTF-8
using Rows = std::vector<std::vector<std::string>>;

constexpr std::uintmax_t largestFile = 4'000'000;

std::string Read(const fs::path& file) {
  std::error_code error;
  const bool fits = fs::is_regular_file(file, error) && fs::file_size(file, error) <= largestFile;
  std::ifstream stream(file, std::ios::binary);
  if (!fits || !stream) throw Failure{Exit::BadFile, PathText(file) + " can't be read."};
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Spreadsheets drop zeros in front.
std::string Number(std::string_view text) {
  const std::string_view bare = Trim(text);
  const std::size_t first = bare.find_first_not_of('0');
  return std::string(first == std::string_view::npos ? "0" : bare.substr(first));
}

std::optional<std::size_t> Column(const Rows& rows, std::string_view name) {
  for (std::size_t i = 0; !rows.empty() && i < rows.front().size(); ++i) {
    if (EqualAnyCase(Trim(rows.front()[i]), name)) return i;
  }
  return std::nullopt;
}

// The rows, and the column that tells whose each is.
struct Table {
  Rows All;
  std::size_t Key = 0;
  bool BySerial = false;
};

Table TableIn(const fs::path& file) {
  Table table{.All = CsvRows(Read(file))};
  const auto serial = Column(table.All, "serial");
  const auto key = serial ? serial : Column(table.All, "unit");
  if (!key) {
    throw Failure{Exit::BadFile, PathText(file) + " has no column \"serial\" or \"unit\"."};
  }
  table.Key = *key;
  table.BySerial = serial.has_value();
  return table;
}

// Two radios with one unit number disturb each other.
void CheckOnce(const Table& table, const fs::path& file, const char* name) {
  const auto column = Column(table.All, name);
  std::set<std::string> seen;
  for (std::size_t i = 1; column && i < table.All.size(); ++i) {
    if (*column >= table.All[i].size()) continue;
    const std::string value = Number(table.All[i][*column]);
    if (value == "0" || seen.insert(value).second) continue;
    throw Failure{Exit::BadFile, PathText(file) + ": row " + std::to_string(i + 1) + " has the " +
                                     name + " number of another row."};
  }
}

Values RowOf(const fs::path& file, const std::string& serial, const std::string& unit) {
  const Table table = TableIn(file);
  const std::string wanted = Number(table.BySerial ? serial : unit);
  for (std::size_t i = 1; i < table.All.size(); ++i) {
    const auto& row = table.All[i];
    if (table.Key >= row.size() || Number(row[table.Key]) != wanted) continue;
    Values values;
    for (std::size_t c = 0; c < std::min(row.size(), table.All.front().size()); ++c) {
      if (c != table.Key) values[Upper(Trim(table.All.front()[c]))] = row[c];
    }
    return values;
  }
  throw Failure{Exit::BadFile, PathText(file) + " has no row for this radio."};
}

bool HasControls(std::string_view text) {
  return std::ranges::any_of(text, [](char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 32 || code == 127;
  });
}

void CheckControls(const fs::path& file) {
  std::string text = Read(file);
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
  if (HasControls(text)) throw Failure{Exit::BadFile, PathText(file) + " has control characters."};
}

std::string ValueOf(const Values& values, const std::string& name) {
  const std::string shown = "${" + OnOneRow(name) + "}";
  const auto found = values.find(Upper(name));
  if (found == values.end() || Trim(found->second).empty()) {
    throw Failure{Exit::BadFile, "There is no value for " + shown + "."};
  }
  const auto value = FromUtf8(found->second);
  if (!value || HasControls(*value)) {
    throw Failure{Exit::BadFile, "The value for " + shown +
                                     " has control characters, or some that radios do not know."};
  }
  return *value;
}

std::string Fill(const std::string& line, const Values& values) {
  std::string filled;
  std::size_t at = 0;
  for (std::size_t open = 0; (open = line.find("${", at)) != std::string::npos;) {
    const std::size_t end = line.find('}', open);
    if (end == std::string::npos) throw Failure{Exit::BadFile, "A \"${\" has no \"}\"."};
    filled += line.substr(at, open - at) + ValueOf(values, line.substr(open + 2, end - open - 2));
    at = end + 1;
  }
  filled += line.substr(at);
  if (filled.size() <= LongestConfigLine) return filled;
  throw Failure{Exit::BadFile, "A line is too long with its values filled in."};
}

// The file in that folder, and whether it goes by the serial number.
std::pair<fs::path, bool> FileIn(const fs::path& folder, const std::string& serial,
                                 const std::string& unit) {
  for (const std::string& name : {serial, Number(serial)}) {
    if (FileExists(folder / (name + ".txt"))) return {folder / (name + ".txt"), true};
  }
  const fs::path byUnit = folder / ("unit-" + unit + ".txt");
  if (!unit.empty() && FileExists(byUnit)) return {byUnit, false};
  throw Failure{Exit::BadFile, PathText(folder) + " has no file for this radio."};
}

}  // namespace

BatchFiles::BatchFiles(fs::path files, fs::path values)
    : source(std::move(files)), table(std::move(values)) {
  if (!DirectoryExists(source)) ConfigurationIn(source);
  if (table.empty()) return;
  const Table read = TableIn(table);
  CheckOnce(read, table, "serial");
  CheckOnce(read, table, "unit");
}

BatchFiles::Filled BatchFiles::For(const std::string& serial, const std::string& unit) const {
  const auto [file, bySerial] =
      DirectoryExists(source) ? FileIn(source, serial, unit) : std::pair(source, false);
  CheckControls(file);
  Values values = table.empty() ? Values() : RowOf(table, serial, unit);
  const bool unitOfRow = values.contains("UNIT");
  values.try_emplace("SERIAL", serial);
  values.try_emplace("UNIT", unit);
  Filled filled{.Lines = ConfigurationIn(file), .UnitIsMeant = bySerial};
  for (std::string& line : filled.Lines) {
    if (IsComment(line)) continue;
    if (unitOfRow && Contains(line, "${unit}")) filled.UnitIsMeant = true;
    line = Fill(line, values);
  }
  return filled;
}

}  // namespace quillmark
