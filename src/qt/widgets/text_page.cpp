#include "qt/widgets/text_page.h"

#include <QFontDatabase>
#include <QScrollBar>
#include <cmath>

namespace quillmark {

namespace {

constexpr int usualColumns = 72;
constexpr int usualRows = 35;

}  // namespace

TextPage::TextPage(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

QSize TextPage::sizeHint() const {
  const QFontMetricsF metrics(font());
  const double margin = 2 * (document()->documentMargin() + frameWidth());
  return {static_cast<int>(std::ceil(metrics.horizontalAdvance(u'0') * usualColumns + margin)) +
              verticalScrollBar()->sizeHint().width(),
          static_cast<int>(std::ceil(metrics.lineSpacing() * usualRows + margin))};
}

}  // namespace quillmark
