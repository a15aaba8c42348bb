#pragma once

#include <QStyledItemDelegate>

class QComboBox;

namespace quillmark {

// Draws a note beside each item of an open list: "Com1   /dev/ttyUSB0 (adapter)". An item that is
// muted, and its note, are written in the colour of what can't be used. A screen reader reads both.
class NotedItems : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  static void SetNote(QComboBox& box, int index, const QString& note, bool muted);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace quillmark
