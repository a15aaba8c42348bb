#include "qt/widgets/row_stack.h"

#include <QGridLayout>
#include <QWidget>
#include <algorithm>

#include "controls/control.h"

namespace quillmark {

RowStack::RowStack(QWidget& frame)
    : QObject(&frame), grid(qobject_cast<QGridLayout*>(frame.layout())) {
  soon.setSingleShot(true);
  connect(&soon, &QTimer::timeout, this, &RowStack::LayOut);
}

void RowStack::LayOutSoon() {
  if (!soon.isActive()) soon.start(0);
}

void RowStack::LayOut() {
  soon.stop();
  if (grid == nullptr || rows.empty()) return;
  std::vector<Row> order = rows;
  std::erase_if(order, [](const Row& row) { return !row.Value->Visible(); });
  std::stable_sort(order.begin(), order.end(), [](const Row& left, const Row& right) {
    return left.Value->Top() < right.Value->Top();
  });
  const auto same = [](const Row& left, const Row& right) { return left.Value == right.Value; };
  if (std::equal(order.begin(), order.end(), laidOut.begin(), laidOut.end(), same)) return;

  for (int row = 0; row < grid->rowCount(); ++row) grid->setRowStretch(row, 0);
  for (const Row& row : rows) {
    grid->removeWidget(row.LabelWidget);
    grid->removeWidget(row.ValueWidget);
  }
  int place = 0;
  QWidget* before = nullptr;
  for (const Row& row : order) {
    grid->addWidget(row.LabelWidget, place, 0);
    grid->addWidget(row.ValueWidget, place, 1);
    if (before != nullptr) QWidget::setTabOrder(before, row.LabelWidget);
    QWidget::setTabOrder(row.LabelWidget, row.ValueWidget);
    before = row.ValueWidget;
    ++place;
  }
  grid->setRowStretch(place, 1);
  laidOut = std::move(order);
}

}  // namespace quillmark
