#pragma once

#include <QCheckBox>
#include <QLineEdit>

#include "qt/widgets/elided_caption.h"

namespace quillmark {

// The widgets of a table with one setting in each row. Those in one column are equally wide
// whatever they hold. What is too long ends in dots.

// A check box whose caption can be read while it is disabled.
class RowCheckBox : public QCheckBox {
  Q_OBJECT

 public:
  using QCheckBox::QCheckBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// A value on one line. While it has the focus it looks like any line. Without the focus, a line
// that can't be changed is flat.
class ValueLine : public QLineEdit {
  Q_OBJECT

 public:
  explicit ValueLine(QWidget* parent = nullptr);

  // Paler than the others, for what is not there.
  void SetQuiet(bool next);
  bool Quiet() const { return quiet; }
  // What is wrong with the value, as a sentence. It is kept for who shows it.
  void SetProblem(const QString& next);
  const QString& Problem() const { return problem; }
  // The value as far as there is room for it.
  QString Shown() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  void ProblemChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect TextPlace() const;

  QString problem;

  bool quiet = false;
};

// The heading of a column, on two lines. One with a file's name may be longer than its column.
class ColumnHeading : public ElidedCaption {
  Q_OBJECT

 public:
  explicit ColumnHeading(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
};

}  // namespace quillmark
