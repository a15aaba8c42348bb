#include "qt/binding/window_fit.h"

#include <QLayout>
#include <QMainWindow>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/widgets/fitting_scroll_area.h"

namespace quillmark {

QSize RoomOn(const QRect& freeScreen, const QWidget& window) {
  if (window.windowFlags().testFlag(Qt::FramelessWindowHint)) return freeScreen.size();
  // Nobody knows the frame before the window is shown.
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  const int side = window.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &window);
  return freeScreen.size() - QSize(2 * side, title + 2 * side);
}

void FitInto(QWidget& window, QSize room) {
  QLayout* whole = window.layout();
  const QSize least = window.minimumSizeHint();
  const bool fits = least.width() <= room.width() && least.height() <= room.height();
  if (whole == nullptr || fits || qobject_cast<QMainWindow*>(&window) != nullptr) return;
  // A layout that holds its window at one size would do so with the page.
  whole->setSizeConstraint(QLayout::SetDefaultConstraint);
  auto* page = new QWidget(&window);
  page->setLayout(whole);
  auto* area = new FittingScrollArea(&window);
  area->Hold(*page);
  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(area);
  window.setMinimumSize(0, 0);
  window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

QPoint Within(const QRect& freeScreen, QPoint wanted, QSize size) {
  const QPoint most = freeScreen.topLeft() + QPoint(freeScreen.width() - size.width(),
                                                    freeScreen.height() - size.height());
  return {std::max(freeScreen.left(), std::min(wanted.x(), most.x())),
          std::max(freeScreen.top(), std::min(wanted.y(), most.y()))};
}

}  // namespace quillmark
