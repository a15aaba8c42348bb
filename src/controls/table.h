#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"

namespace quillmark {

// A sign that is drawn in a column of its own. The view has a word for each, too.
enum class Sign { None, Same, Differs, Pinned };

// One row of a table.
struct TableRow {
  std::vector<std::string> Cells;  // column by column
  Sign Mark = Sign::None;          // drawn in the column of the marks
  std::string Tip{};               // tool tip; empty: the text of the cell
  bool Muted = false;              // what it tells of can't be used
  bool operator==(const TableRow&) const = default;
};

// Rows to look at and to select from. The user can copy those that are selected.
class Table : public Control {
 public:
  // `markColumn` counts from 0; what the cells say there is not shown. -1: there is none.
  Table(Form& form, Control* container, std::string name, std::vector<std::string> headings,
        int markColumn = -1);

  Property<std::vector<std::string>> Headings;
  const int MarkColumn;

  const std::vector<TableRow>& Rows() const { return rows; }
  // The numbers of the selected rows, from 0, ascending.
  const std::vector<std::size_t>& Selected() const { return selected; }
  // Shows these rows in the place of those before, and selects some of them. No handler is called.
  void Show(std::vector<TableRow> next, std::vector<std::size_t> select = {});
  // Another number at each Show that has changed something.
  long Version() const { return version; }

  // The user has selected others.
  std::function<void()> OnSelect;
  // Enter or a double click, on the rows that are selected.
  std::function<void()> OnOpen;

  // The user's acts; false when the table can't be reached or has no such rows.
  bool UserSelect(std::vector<std::size_t> numbers);
  bool UserOpen();

 private:
  std::vector<TableRow> rows;
  std::vector<std::size_t> selected;
  long version = 0;
};

}  // namespace quillmark
