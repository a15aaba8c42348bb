#include "qt/widgets/row_widgets.h"

#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QStylePainter>

namespace quillmark {

namespace {

// Of a value, in average characters.
constexpr int usualWidth = 26;
constexpr int leastWidth = 12;

// Between the edge of a line and its text, in pixels, as the line itself has it.
constexpr int textIndent = 2;

// How strong the ink is in which something stands that is not there or cannot be changed.
constexpr float mutedInk = 0.65F;

// A row that turns bold does not change its column.
int CharacterWidth(const QWidget& widget) {
  const QWidget* page = widget.parentWidget() == nullptr ? &widget : widget.parentWidget();
  return page->fontMetrics().averageCharWidth();
}

QColor Ink(const QWidget& widget, QPalette::ColorRole role, bool muted) {
  QColor ink = widget.palette().color(QPalette::Active, role);
  if (muted) ink.setAlphaF(mutedInk);
  return ink;
}

}  // namespace

void RowCheckBox::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.palette.setColor(QPalette::Disabled, QPalette::WindowText,
                          Ink(*this, QPalette::WindowText, true));
  painter.drawControl(QStyle::CE_CheckBox, option);
}

ValueLine::ValueLine(QWidget* parent) : QLineEdit(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ValueLine::SetQuiet(bool next) {
  quiet = next;
  update();
}

void ValueLine::SetProblem(const QString& next) {
  if (next == problem) return;
  problem = next;
  emit ProblemChanged();
}

QSize ValueLine::sizeHint() const {
  return {CharacterWidth(*this) * usualWidth, QLineEdit::sizeHint().height()};
}

QSize ValueLine::minimumSizeHint() const {
  return {CharacterWidth(*this) * leastWidth, QLineEdit::minimumSizeHint().height()};
}

QRect ValueLine::TextPlace() const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  return style()
      ->subElementRect(QStyle::SE_LineEditContents, &option, this)
      .adjusted(textIndent, 0, -textIndent, 0);
}

QString ValueLine::Shown() const {
  return fontMetrics().elidedText(displayText(), Qt::ElideRight, TextPlace().width());
}

void ValueLine::paintEvent(QPaintEvent* event) {
  if (hasFocus()) return QLineEdit::paintEvent(event);
  QStylePainter painter(this);
  QStyleOptionFrame option;
  initStyleOption(&option);
  if (!isReadOnly()) painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
  const auto role = isReadOnly() ? QPalette::WindowText : QPalette::Text;
  painter.setPen(Ink(*this, role, quiet || !isEnabled()));
  painter.drawText(TextPlace(), Qt::AlignLeft | Qt::AlignVCenter, Shown());
}

ColumnHeading::ColumnHeading(QWidget* parent) : ElidedCaption(parent) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setAlignment(Qt::AlignLeft | Qt::AlignBottom);
}

QSize ColumnHeading::sizeHint() const {
  return {CharacterWidth(*this) * usualWidth, 2 * fontMetrics().lineSpacing()};
}

QSize ColumnHeading::minimumSizeHint() const {
  return {CharacterWidth(*this) * leastWidth, sizeHint().height()};
}

}  // namespace quillmark
