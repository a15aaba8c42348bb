#pragma once

#include <QAbstractTableModel>

#include "controls/table.h"

namespace quillmark {

// The rows of a table of the logic as Qt's views want them: texts, tool tips, and the marks as
// signs to see and words to hear.
class TableRows : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  // Shows what the table holds now; rows that only change keep their places on the screen. The
  // table outlives the views.
  void Follow(const Table& next);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  // The rows as text, tabs between the cells. All rows come with their headings.
  QString AsText(const std::vector<std::size_t>& numbers) const;

 private:
  bool IsMark(int column) const { return column == table->MarkColumn; }
  QString TextOf(const TableRow& row, int column) const;
  QVariant Look(const TableRow& row, int column, int role) const;

  const Table* table = nullptr;
  int count = 0;  // of the rows that the views know
};

}  // namespace quillmark
