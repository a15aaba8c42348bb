#pragma once

#include <QObject>
#include <QTimer>
#include <vector>

class QGridLayout;
class QWidget;

namespace quillmark {

class Control;

// The rows of one frame, each a label and a value: keeps them in the order of their Top, those that
// are hidden leaving no gap. The binder fills it; controls and widgets outlive it.
class RowStack : public QObject {
 public:
  // Nothing happens for a frame whose widget has no grid.
  explicit RowStack(QWidget& frame);

  struct Row {
    const Control* Value;
    QWidget* ValueWidget;
    QWidget* LabelWidget;
  };

  void Add(const Row& row) { rows.push_back(row); }
  // Once the handlers on the stack have had their say.
  void LayOutSoon();
  void LayOut();

 private:
  QGridLayout* grid;
  std::vector<Row> rows;
  std::vector<Row> laidOut;
  QTimer soon;
};

}  // namespace quillmark
