#include "qt/widgets/elided_caption.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace quillmark {

namespace {

// How strong the ink is while it is disabled.
constexpr float mutedInk = 0.65F;

// Of a line, in average characters.
constexpr int usualWidth = 26;

}  // namespace

ElidedCaption::ElidedCaption(QWidget* parent) : CaptionLabel(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ElidedCaption::sizeHint() const {
  return {fontMetrics().averageCharWidth() * usualWidth, fontMetrics().lineSpacing()};
}

QSize ElidedCaption::minimumSizeHint() const { return sizeHint(); }

QString ElidedCaption::Shown() const {
  QStringList lines = text().split(QLatin1Char('\n'));
  for (QString& line : lines) {
    line = fontMetrics().elidedText(line, Qt::ElideMiddle, contentsRect().width());
  }
  return lines.join(QLatin1Char('\n'));
}

bool ElidedCaption::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Shown() == text()) return CaptionLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                     QStringLiteral("<qt>%1</qt>").arg(text().toHtmlEscaped()), this);
  return true;
}

void ElidedCaption::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QColor ink = palette().color(QPalette::Active, foregroundRole());
  if (!isEnabled()) ink.setAlphaF(mutedInk);
  painter.setPen(ink);
  painter.drawText(contentsRect(), static_cast<int>(alignment()), Shown());
}

}  // namespace quillmark
