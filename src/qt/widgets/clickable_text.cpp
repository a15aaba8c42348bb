#include "qt/widgets/clickable_text.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QTimer>
#include <QToolTip>
#include <algorithm>

namespace quillmark {

namespace {

// Of a value, in average characters.
constexpr int usualWidth = 30;
constexpr int leastWidth = 10;

constexpr float mutedInk = 0.65F;

// Behind a value with which something is wrong; its colour can be read on light and on dark ground.
constexpr char16_t sign[] = u"\u2260";
constexpr QColor signOnLight(0xB0, 0x00, 0x20);
constexpr QColor signOnDark(0xFF, 0x8A, 0x80);
constexpr int darkest = 128;  // lightness below which a ground is dark

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
  LeaveMargins();
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

// Without a frame there is none to keep off at the text's end.
void ValueBox::LeaveMargins() {
  const int across = fontMetrics().averageCharWidth();
  const int down = std::max(3, fontMetrics().height() / 4);
  setContentsMargins(across, down, Live() ? across : 0, down);
}

void ValueBox::SetCaption(CaptionLabel* next) {
  caption = next;
  LookChanged();
}

void ValueBox::SetDimmed(bool next) {
  if (next == dimmed) return;
  dimmed = next;
  QFont face = font();
  face.setItalic(dimmed);
  setFont(face);
  update();
}

void ValueBox::SetFound(bool next) {
  if (next == found) return;
  found = next;
  update();
  if (found) ComeIntoView();
}

// When the tab it stands on is in front and laid out.
void ValueBox::ComeIntoView() {
  QTimer::singleShot(0, this, [this] {
    for (QWidget* at = parentWidget(); at != nullptr; at = at->parentWidget()) {
      if (auto* area = qobject_cast<QScrollArea*>(at)) area->ensureWidgetVisible(this);
    }
  });
}

QSize ValueBox::sizeHint() const {
  const QMargins margins = contentsMargins();
  return {fontMetrics().averageCharWidth() * usualWidth + 2 * margins.left(),
          fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize ValueBox::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * leastWidth, sizeHint().height()};
}

void ValueBox::SetMark(const QString& next) {
  if (next == mark) return;
  mark = next;
  update();
}

QFont ValueBox::SignFont() const {
  QFont bold = font();
  bold.setBold(true);
  return bold;
}

int ValueBox::SignWidth() const {
  if (mark.isEmpty()) return 0;
  const QFontMetrics metrics(SignFont());
  return metrics.horizontalAdvance(QString::fromUtf16(sign)) + metrics.averageCharWidth();
}

QRect ValueBox::TextRoom() const { return contentsRect().adjusted(0, 0, -SignWidth(), 0); }

QString ValueBox::Elided() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, TextRoom().width());
}

bool ValueBox::event(QEvent* event) {
  const bool whole = Elided() == text();
  if (event->type() != QEvent::ToolTip || (whole && mark.isEmpty())) {
    return ClickableText::event(event);
  }
  QStringList lines;
  if (!mark.isEmpty()) lines += mark.toHtmlEscaped();
  if (!whole) lines += text().toHtmlEscaped();
  if (!toolTip().isEmpty()) lines += toolTip();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                     QStringLiteral("<qt>%1</qt>").arg(lines.join(QStringLiteral("<br>"))), this);
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
  LeaveMargins();
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
  if (Live() || found) {
    painter.setRenderHint(QPainter::Antialiasing);
    const bool marked = hasFocus() || found;
    const bool lively = Hovered() || marked;
    const QColor edge =
        palette().color(QPalette::Active, lively ? QPalette::Highlight : QPalette::Mid);
    const double width = marked ? 2 : 1;
    const double radius = fontMetrics().height() / 5.0;
    painter.setPen(QPen(edge, width));
    if (Live()) painter.setBrush(palette().base());
    const double inset = width / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
  }
  // A value that can't be changed now can still be read.
  QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
  if (!isEnabled() || dimmed) ink.setAlphaF(mutedInk);
  painter.setPen(ink);
  painter.drawText(TextRoom(), static_cast<int>(alignment()), Elided());
  if (!mark.isEmpty()) PaintSign(painter);
}

void ValueBox::PaintSign(QPainter& painter) const {
  const QColor ground = palette().color(Live() ? QPalette::Base : QPalette::Window);
  painter.setPen(ground.lightness() < darkest ? signOnDark : signOnLight);
  painter.setFont(SignFont());
  painter.drawText(contentsRect(), Qt::AlignRight | Qt::AlignVCenter, QString::fromUtf16(sign));
}

}  // namespace quillmark
