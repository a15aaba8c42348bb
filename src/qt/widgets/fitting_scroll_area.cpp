#include "qt/widgets/fitting_scroll_area.h"

#include <QEvent>
#include <QScrollBar>

namespace quillmark {

namespace {

constexpr int fontStep = 5;  // percent

}  // namespace

FittingScrollArea::FittingScrollArea(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  // The ground is the window's, not that of a list.
  viewport()->setBackgroundRole(QPalette::Window);
}

void FittingScrollArea::Hold(QWidget& held) {
  setWidget(&held);
  held.setAutoFillBackground(false);
}

void FittingScrollArea::SetLeast(QSize next) {
  least = next;
  updateGeometry();
}

void FittingScrollArea::SetUsual(QSize next) {
  usual = next;
  updateGeometry();
}

QSize FittingScrollArea::sizeHint() const {
  if (widget() == nullptr) return usual;
  return widget()->sizeHint().expandedTo(widget()->minimumSizeHint()).expandedTo(usual);
}

// The bar at the side must not take the room that the width was made for.
QSize FittingScrollArea::minimumSizeHint() const {
  if (widget() == nullptr) return least;
  const QSize bars(verticalScrollBar()->sizeHint().width(), 0);
  return least.boundedTo(widget()->minimumSizeHint() + bars);
}

bool FittingScrollArea::eventFilter(QObject* watched, QEvent* event) {
  if (watched == widget() && event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    WriteSmaller();
  }
  return QScrollArea::eventFilter(watched, event);
}

void FittingScrollArea::resizeEvent(QResizeEvent* event) {
  while (nowFont < 100 && WidthAt(nowFont + fontStep) <= width()) WriteIn(nowFont + fontStep);
  WriteSmaller();
  QScrollArea::resizeEvent(event);
}

// About, as texts do not grow evenly.
int FittingScrollArea::WidthAt(int percent) const {
  return widget()->minimumSizeHint().width() * percent / nowFont;
}

void FittingScrollArea::WriteIn(int percent) {
  nowFont = percent;
  QFont face = font();
  face.setPointSizeF(face.pointSizeF() * percent / 100);
  widget()->setFont(face);
}

void FittingScrollArea::WriteSmaller() {
  while (nowFont > leastFont && widget()->minimumSizeHint().width() > width()) {
    WriteIn(nowFont - fontStep);
  }
}

}  // namespace quillmark
