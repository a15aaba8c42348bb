#include "qt/widgets/notice_line.h"

#include <QAccessible>
#include <QPainter>
#include <QRegularExpression>
#include <QShowEvent>
#include <QStyleOptionFocusRect>
#include <algorithm>

namespace quillmark {

namespace {

// Of the sentence, in average characters.
constexpr int leastWidth = 12;

QString WithoutFigures(QString sentence) {
  static const QRegularExpression figures(QStringLiteral("[0-9]+"));
  return sentence.remove(figures);
}

// The folders of each path, with the slashes at both ends. A folder's name ends in no blank.
QRegularExpression Folders() {
  return QRegularExpression(QStringLiteral("(?<![^\\s\"])/(?:[^/\"]*[^/\"\\s]/)+"));
}

}  // namespace

NoticeLine::NoticeLine(QWidget* parent) : QPushButton(parent) {
  setFlat(true);
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void NoticeLine::SetSentence(const QString& next) {
  if (next == sentence) return;
  // A figure that moves on is not spoken each time.
  const bool news = WithoutFigures(next) != WithoutFigures(sentence);
  sentence = next;
  setAccessibleName(sentence);
  if (news && isVisible()) SpeakUp();
  updateGeometry();
  update();
}

void NoticeLine::SpeakUp() {
  QAccessibleEvent event(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void NoticeLine::showEvent(QShowEvent* event) {
  QPushButton::showEvent(event);
  if (!event->spontaneous()) SpeakUp();
}

void NoticeLine::SetClickable(bool next) {
  clickable = next;
  setFocusPolicy(clickable ? Qt::StrongFocus : Qt::NoFocus);
  if (clickable) {
    setCursor(Qt::PointingHandCursor);
  } else {
    unsetCursor();
  }
  update();
}

int NoticeLine::MarkWidth() const { return fontMetrics().height(); }

QSize NoticeLine::SizeFor(int textWidth) const {
  const int gap = fontMetrics().averageCharWidth();
  return {MarkWidth() + textWidth + 2 * gap, fontMetrics().height() + gap};
}

QSize NoticeLine::sizeHint() const { return SizeFor(fontMetrics().horizontalAdvance(sentence)); }

QSize NoticeLine::minimumSizeHint() const {
  const int least = fontMetrics().averageCharWidth() * leastWidth;
  return SizeFor(std::min(least, fontMetrics().horizontalAdvance(sentence)));
}

QRect NoticeLine::TextRoom() const {
  return rect().adjusted(MarkWidth() + fontMetrics().averageCharWidth(), 0, 0, 0);
}

QString NoticeLine::Shown() const {
  static const QRegularExpression folders = Folders();
  const QFontMetrics metrics = fontMetrics();
  const int room = TextRoom().width();
  QString shown = sentence;
  QRegularExpressionMatch path = folders.match(shown);
  while (path.hasMatch() && metrics.horizontalAdvance(shown) > room) {
    const int others =
        metrics.horizontalAdvance(shown) - metrics.horizontalAdvance(path.captured());
    const int least = metrics.horizontalAdvance(QStringLiteral("/\u2026/"));
    const QString cut =
        metrics.elidedText(path.captured(), Qt::ElideMiddle, std::max(least, room - others));
    shown.replace(path.capturedStart(), path.capturedLength(), cut);
    path = folders.match(shown, path.capturedStart() + cut.size());
  }
  return metrics.elidedText(shown, Qt::ElideRight, room);
}

void NoticeLine::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor ink = palette().color(clickable ? QPalette::Link : QPalette::WindowText);
  const int gap = fontMetrics().averageCharWidth();

  // A disc in the colour of what is selected: no text stands on it.
  const double side = fontMetrics().height() / 2.0;
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette().highlight());
  painter.drawEllipse(QRectF(gap, (height() - side) / 2, side, side));

  QFont face = font();
  face.setUnderline(clickable && (hovered || hasFocus()));
  painter.setFont(face);
  painter.setPen(ink);
  painter.drawText(TextRoom(), Qt::AlignVCenter | Qt::TextSingleLine, Shown());
  if (!hasFocus()) return;
  QStyleOptionFocusRect frame;
  frame.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void NoticeLine::enterEvent(QEnterEvent* event) {
  hovered = true;
  QPushButton::enterEvent(event);
}

void NoticeLine::leaveEvent(QEvent* event) {
  hovered = false;
  QPushButton::leaveEvent(event);
}

}  // namespace quillmark
