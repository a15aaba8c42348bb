#pragma once

#include <QTableView>
#include <cstddef>
#include <vector>

#include "controls/table.h"

namespace quillmark {

class TableRows;

// A table of the logic: rows that are selected as a whole, and copied by Ctrl+C with tabs between
// the cells. What is cut off stands in the tool tip. The columns are as wide as their texts, within
// bounds, and the user may move their borders; those that the form's property "stretchColumns"
// names ("1 2", from 0) share what is left.
class TableView : public QTableView {
  Q_OBJECT

 public:
  explicit TableView(QWidget* parent = nullptr);

  // Shows what the table holds now. The table outlives the view.
  void Follow(const Table& table);

  QSize sizeHint() const override;

 signals:
  // The user has selected these rows, from 0, ascending.
  void Chose(const std::vector<std::size_t>& rows);
  // Enter or a double click.
  void Opened();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void SizeColumns();
  void Select(const std::vector<std::size_t>& rows);
  std::vector<std::size_t> SelectedRows() const;
  void CopySelected() const;

  TableRows* rows;
  long shown = -1;     // the version of the table
  bool sized = false;  // the user has moved a border
  bool quiet = false;  // the program selects, not the user
};

}  // namespace quillmark
