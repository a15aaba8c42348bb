#include "qt/widgets/color_block.h"

#include <QPainter>

#include "controls/shape.h"
#include "qt/widgets/colors.h"

namespace quillmark {

ColorBlock::ColorBlock(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
}

void ColorBlock::SetLook(std::uint32_t fill, std::uint32_t border, int width) {
  fillColor = fill;
  borderColor = border;
  borderWidth = width;
  update();
}

QSize ColorBlock::sizeHint() const {
  const int side = fontMetrics().height();
  return {side, side};
}

// The theme is asked at each painting, as it may change meanwhile.
QColor ColorBlock::Resolved(std::uint32_t color) const {
  if (color == ThemeButtonFace) return palette().color(QPalette::Button);
  if (color == ThemeButtonShadow) return palette().color(QPalette::Mid);
  return ToColor(color);
}

void ColorBlock::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Resolved(borderWidth > 0 ? borderColor : fillColor));
  const int inset = borderWidth;
  painter.fillRect(rect().adjusted(inset, inset, -inset, -inset), Resolved(fillColor));
}

}  // namespace quillmark
