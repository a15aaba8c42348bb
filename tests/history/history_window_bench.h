#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "config/config_bench.h"
#include "history/copy_store.h"
#include "history/frmHistory.h"

namespace quillmark {

// A session with the window of the radio history, and copies that were kept before.
class HistoryWindowBench : public ConfigBench {
 public:
  static constexpr std::int64_t FirstTime = 1'750'000'000;  // 2025-06-15 15:06:40 UTC

  HistoryWindowBench() { Store("Preferences", "History", "True"); }

  std::filesystem::path Folder() const { return DataFolder() / "radios"; }
  // Keeps a copy an hour behind the one before.
  std::filesystem::path Keep(const std::string& serial, const std::vector<std::string>& lines,
                             const std::string& reason = "read") {
    RadioCopy copy{
        .Serial = "SN " + serial, .Firmware = "", .Reason = reason, .Name = "", .Lines = lines};
    const std::int64_t time = FirstTime + 3600 * kept++;
    return CopyStore(Machine().Files).Add(serial, CopyText(copy, "1/1/2026", time), time);
  }
  void Open() {
    if (!WindowOpen("frmOrvalent")) Start();
    EXPECT_TRUE(Click("mnuHistory"));
  }
  Table& Radios() { return As<Table>("frmHistory.tblRadios"); }
  Table& Copies() { return As<Table>("frmHistory.tblCopies"); }
  static std::string Rows(const Table& table) {
    std::string text;
    for (const TableRow& row : table.Rows()) {
      for (const std::string& cell : row.Cells) text += cell + "|";
      text += row.Mark == Sign::Pinned ? "pinned\n" : "\n";
    }
    return text;
  }
  // The number of a copy's row; its time is the name of its file.
  std::size_t RowOf(const std::filesystem::path& file) {
    const auto time = TimeOfName(file.stem().string());
    const std::string when = time ? DesktopSeen().DateAndTime(*time) : file.filename().string();
    const auto& rows = Copies().Rows();
    const auto at = std::ranges::find_if(rows, [&](auto& row) { return row.Cells[0] == when; });
    return static_cast<std::size_t>(at - rows.begin());
  }
  void Choose(const std::vector<std::filesystem::path>& files) {
    std::vector<std::size_t> numbers;
    numbers.reserve(files.size());
    for (const std::filesystem::path& file : files) numbers.push_back(RowOf(file));
    EXPECT_TRUE(Copies().UserSelect(numbers));
  }
  // Each file below the folder, with its content.
  std::map<std::filesystem::path, std::string> Tree() const {
    std::map<std::filesystem::path, std::string> tree;
    for (const auto& each : std::filesystem::recursive_directory_iterator(Folder())) {
      tree[each.path()] = each.is_regular_file() ? FileText(each.path()) : "";
    }
    return tree;
  }
  // What the comparison on the screen shows: titles, then its rows.
  std::string Comparison() {
    auto& table = As<Table>("frmComparison.tblSettings");
    std::string text = table.Headings()[1] + " / " + table.Headings()[2] + "\n" + Rows(table);
    EXPECT_TRUE(Click("frmComparison.cmdClose"));
    return text;
  }

  int kept = 0;
};

}  // namespace quillmark
