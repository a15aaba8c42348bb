#pragma once

#include <QLabel>
#include <QObject>

#include "qt/widgets/row_widgets.h"
#include "restore/restore_rows.h"

namespace quillmark {

// Watches one row of the store and restore window, and shows how the radio's value compares to that
// of the file: by a mark between the two, by bold text, and in words for the tool tip and the
// screen reader. It is a child of the mark. The other widgets live as long as the mark does.
class RowComparison : public QObject {
  Q_OBJECT

 public:
  // `fileUser` is enabled as soon as a file is open. Before that there is nothing to compare.
  RowComparison(const RestoreRow& row, QCheckBox& check, ValueLine& current, ValueLine& next,
                QLabel& mark, QWidget& fileUser);

  // How wide the column of the marks is.
  static int MarkWidth(const QWidget& where);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Show();
  bool ShowTip(QWidget& widget, const QPoint& place) const;

  const RestoreRow row;
  QCheckBox& check;
  ValueLine& current;
  ValueLine& next;
  QLabel& mark;
  QWidget& fileUser;
};

}  // namespace quillmark
