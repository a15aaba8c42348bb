#pragma once

#include <QObject>
#include <QTimer>
#include <vector>

class QGridLayout;
class QWidget;

namespace quillmark {

class Control;

// The rows of one frame, each a label and a value. Keeps them in the order of their Top; hidden
// rows leave no gap. The binder fills it. It is a child of the frame.
class RowStack : public QObject {
 public:
  // Nothing happens for a frame whose widget has no grid.
  explicit RowStack(QWidget& frame);

  // A value of the logic, and the widgets that show it and its caption.
  struct Row {
    const Control* Value;
    QWidget* ValueWidget;
    QWidget* LabelWidget;
  };

  void Add(const Row& row) { rows.push_back(row); }
  // Lays the rows out when the handlers on the stack have returned.
  void LayOutSoon();
  void LayOut();

 private:
  QGridLayout* grid;
  std::vector<Row> rows;
  std::vector<Row> laidOut;
  QTimer soon;
};

}  // namespace quillmark
