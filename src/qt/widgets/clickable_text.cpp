#include "qt/widgets/clickable_text.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

namespace quillmark {

namespace {

// Of a value, in average characters.
constexpr int usualWidth = 30;
constexpr int leastWidth = 10;

constexpr float mutedInk = 0.65F;

}  // namespace

ClickableText::ClickableText(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void ClickableText::SetClickable(bool next) {
  if (next == clickable) return;
  clickable = next;
  LookChanged();
}

void ClickableText::mousePressEvent(QMouseEvent* event) {
  pressed = clickable && event->button() == Qt::LeftButton;
  if (!pressed) QLabel::mousePressEvent(event);
}

void ClickableText::mouseReleaseEvent(QMouseEvent* event) {
  const bool clicked = pressed && rect().contains(event->position().toPoint());
  pressed = false;
  if (clicked) {
    emit Clicked();
  } else {
    QLabel::mouseReleaseEvent(event);
  }
}

void ClickableText::keyPressEvent(QKeyEvent* event) {
  const bool act = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                   event->key() == Qt::Key_Space;
  if (clickable && act && event->modifiers() == Qt::NoModifier) {
    emit Clicked();
  } else {
    QLabel::keyPressEvent(event);
  }
}

void ClickableText::enterEvent(QEnterEvent* event) {
  hovered = true;
  LookChanged();
  QLabel::enterEvent(event);
}

void ClickableText::leaveEvent(QEvent* event) {
  hovered = false;
  LookChanged();
  QLabel::leaveEvent(event);
}

void ClickableText::focusInEvent(QFocusEvent* event) {
  LookChanged();
  QLabel::focusInEvent(event);
}

void ClickableText::focusOutEvent(QFocusEvent* event) {
  LookChanged();
  QLabel::focusOutEvent(event);
}

void ClickableText::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) LookChanged();
  QLabel::changeEvent(event);
}

void CaptionLabel::TakeFocusInPlaceOfValue(bool take) {
  inPlaceOfValue = take;
  LookChanged();
}

void CaptionLabel::LookChanged() {
  setFocusPolicy(Live() && inPlaceOfValue ? Qt::TabFocus : Qt::NoFocus);
  const bool underlined = Live() && (Hovered() || hasFocus());
  if (font().underline() != underlined) {
    QFont next = font();
    next.setUnderline(underlined);
    setFont(next);
  }
  if (Live()) {
    setCursor(Qt::PointingHandCursor);
  } else {
    unsetCursor();
  }
}

ValueBox::ValueBox(QWidget* parent) : ClickableText(parent) {
  const int across = fontMetrics().averageCharWidth();
  const int down = std::max(3, fontMetrics().height() / 4);
  setContentsMargins(across, down, across, down);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ValueBox::SetCaption(CaptionLabel* next) {
  caption = next;
  LookChanged();
}

QSize ValueBox::sizeHint() const {
  const QMargins margins = contentsMargins();
  return {fontMetrics().averageCharWidth() * usualWidth + margins.left() + margins.right(),
          fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize ValueBox::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * leastWidth, sizeHint().height()};
}

QString ValueBox::Elided() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool ValueBox::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Elided() == text()) return ClickableText::event(event);
  const QString whole = text().toHtmlEscaped();
  const QString tip = toolTip().isEmpty() ? whole : whole + QStringLiteral("<br>") + toolTip();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                     QStringLiteral("<qt>%1</qt>").arg(tip), this);
  return true;
}

void ValueBox::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1 && !caption.isNull() && caption->IsClickable()) {
    emit caption->Clicked();
  } else {
    ClickableText::keyPressEvent(event);
  }
}

void ValueBox::LookChanged() {
  setFocusPolicy(Live() ? Qt::StrongFocus : Qt::NoFocus);
  if (!caption.isNull()) caption->TakeFocusInPlaceOfValue(!Live());
  if (Live()) {
    setCursor(Qt::PointingHandCursor);
  } else {
    unsetCursor();
  }
  update();
}

void ValueBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (Live()) {
    painter.setRenderHint(QPainter::Antialiasing);
    const bool lively = Hovered() || hasFocus();
    const QColor edge = palette().color(lively ? QPalette::Highlight : QPalette::Mid);
    const double width = hasFocus() ? 2 : 1;
    const double radius = fontMetrics().height() / 5.0;
    painter.setPen(QPen(edge, width));
    painter.setBrush(palette().base());
    const double inset = width / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
  }
  // A value that can't be changed now can still be read.
  QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
  if (!isEnabled()) ink.setAlphaF(mutedInk);
  painter.setPen(ink);
  painter.drawText(contentsRect(), static_cast<int>(alignment()), Elided());
}

}  // namespace quillmark
