#include "qt/widgets/svg_picture.h"

#include <QPainter>

namespace quillmark {

namespace {

// Pixels of the drawing to one height of a line, where its writing is as large as the program's.
constexpr double drawnLine = 17;

}  // namespace

void SvgPicture::SetSource(const QString& next) {
  source = next;
  renderer.load(source);
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  updateGeometry();
  update();
}

QSize SvgPicture::sizeHint() const {
  return (QSizeF(renderer.defaultSize()) * fontMetrics().height() / drawnLine).toSize();
}

void SvgPicture::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  renderer.render(&painter, rect());
}

}  // namespace quillmark
