#include "qt/widgets/eliding_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace quillmark {

namespace {

// Of the caption, in average characters.
constexpr int usualWidth = 14;
constexpr int leastWidth = 8;

// How much larger than its surroundings' the button's font may become without the button growing.
constexpr double largestFont = 1.15;

QSize SizeFor(const QPushButton& button, int characters) {
  QFont font = button.parentWidget() == nullptr ? button.font() : button.parentWidget()->font();
  font.setPointSizeF(font.pointSizeF() * largestFont);
  const QFontMetrics metrics(font);
  QStyleOptionButton option;
  option.initFrom(&button);
  option.fontMetrics = metrics;
  const QSize text(metrics.averageCharWidth() * characters, metrics.height());
  return button.style()->sizeFromContents(QStyle::CT_PushButton, &option, text, &button);
}

}  // namespace

QSize ElidingButton::sizeHint() const { return SizeFor(*this, usualWidth); }

QSize ElidingButton::minimumSizeHint() const { return SizeFor(*this, leastWidth); }

QString ElidingButton::Shown() const {
  QStyleOptionButton option;
  initStyleOption(&option);
  const int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
  return fontMetrics().elidedText(text(), Qt::ElideRight, room, Qt::TextShowMnemonic);
}

void ElidingButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text = Shown();
  painter.drawControl(QStyle::CE_PushButton, option);
}

}  // namespace quillmark
