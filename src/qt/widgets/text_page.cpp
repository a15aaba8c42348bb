#include "qt/widgets/text_page.h"

#include <QFontDatabase>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QToolTip>
#include <cmath>
#include <utility>

namespace quillmark {

namespace {

constexpr int usualColumns = 72;
constexpr int usualRows = 35;
// Of the ground behind a marked line; the text on it stays as it is.
constexpr float groundStrength = 0.2F;

}  // namespace

TextPage::TextPage(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setTabChangesFocus(true);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

void TextPage::SetRemarks(std::map<int, QString> next) {
  remarks = std::move(next);
  QColor ground = palette().color(QPalette::Highlight);
  ground.setAlphaF(groundStrength);
  QList<QTextEdit::ExtraSelection> marks;
  for (const auto& [line, remark] : remarks) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(document()->findBlockByNumber(line));
    mark.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    mark.format.setBackground(ground);
    mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    mark.format.setUnderlineColor(palette().color(QPalette::Text));
    marks.append(mark);
  }
  setExtraSelections(marks);
}

bool TextPage::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QPlainTextEdit::viewportEvent(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  const auto remark = remarks.find(cursorForPosition(help.pos()).blockNumber());
  QToolTip::showText(help.globalPos(),
                     remark == remarks.end()
                         ? QString()
                         : QStringLiteral("<qt>%1</qt>").arg(remark->second.toHtmlEscaped()),
                     viewport());
  return true;
}

QSize TextPage::sizeHint() const {
  const QFontMetricsF metrics(font());
  const double margin = 2 * (document()->documentMargin() + frameWidth());
  return {static_cast<int>(std::ceil(metrics.horizontalAdvance(u'0') * usualColumns + margin)) +
              verticalScrollBar()->sizeHint().width(),
          static_cast<int>(std::ceil(metrics.lineSpacing() * usualRows + margin))};
}

}  // namespace quillmark
