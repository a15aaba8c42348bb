#include "controls/table.h"

#include <algorithm>
#include <utility>

#include "controls/form.h"

namespace quillmark {

Table::Table(Form& form, Control* container, std::string name, std::vector<std::string> headings,
             int markColumn)
    : Control(form, container, std::move(name)),
      Headings(*this, std::move(headings)),
      MarkColumn(markColumn) {}

void Table::Show(std::vector<TableRow> next, std::vector<std::size_t> select) {
  std::ranges::sort(select);
  std::erase_if(select, [&next](std::size_t number) { return number >= next.size(); });
  if (rows == next && selected == select) return;
  rows = std::move(next);
  selected = std::move(select);
  ++version;
  Changed();
}

bool Table::UserSelect(std::vector<std::size_t> numbers) {
  std::ranges::sort(numbers);
  if (!Reachable() || (!numbers.empty() && numbers.back() >= rows.size())) return false;
  if (numbers == selected) return true;
  selected = std::move(numbers);
  const auto alive = Owner().weak_from_this().lock();
  if (OnSelect) OnSelect();
  return true;
}

bool Table::UserOpen() {
  if (!OnOpen || selected.empty() || !Reachable()) return false;
  const auto alive = Owner().weak_from_this().lock();
  OnOpen();
  return true;
}

}  // namespace quillmark
