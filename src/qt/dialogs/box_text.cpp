#include "qt/dialogs/box_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QRegularExpression>
#include <algorithm>

#include "qt/text/latin1.h"

namespace quillmark {

namespace {

// Of a column of text that reads well, in average characters.
constexpr int columnWidth = 64;

// Where a word that is too long for the column, such as a path, may go on in the next line.
constexpr QChar breakMark(0x200B);
constexpr int longestWord = 48;
constexpr int longestPiece = 24;

QString WithBreaks(const QString& text) {
  static const QRegularExpression longWords(QStringLiteral("\\S{%1,}").arg(longestWord));
  static const QRegularExpression pieces(QStringLiteral("([^/]{%1}|/)(?=.)").arg(longestPiece));
  QString broken = text;
  QRegularExpressionMatch word = longWords.match(broken);
  while (word.hasMatch()) {
    QString parts = word.captured();
    parts.replace(pieces, QStringLiteral("\\1") + breakMark);
    broken.replace(word.capturedStart(), word.capturedLength(), parts);
    word = longWords.match(broken, word.capturedStart() + parts.size());
  }
  return broken;
}

}  // namespace

QLabel* MakeBoxText(const std::string& text, const char* name, QWidget* parent) {
  const QString whole = InLines(text);
  const QString shown = WithBreaks(whole);
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  label->setText(shown);
  if (shown != whole) label->setAccessibleName(whole);
  const QFontMetrics metrics = label->fontMetrics();
  const int widest = metrics.averageCharWidth() * columnWidth;
  label->setWordWrap(true);
  label->setMinimumWidth(
      std::min(metrics.boundingRect(QRect(), Qt::AlignLeft, shown).width() + 1, widest));
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setFocusPolicy(Qt::ClickFocus);
  return label;
}

void CopyWithoutBreaks(QWidget& window) {
  QClipboard* clipboard = QGuiApplication::clipboard();
  const auto clean = [&window, clipboard](QClipboard::Mode mode) {
    QString copied = clipboard->text(mode);
    if (!copied.contains(breakMark)) return;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      if (label->selectedText() != copied) continue;
      return clipboard->setText(copied.remove(breakMark), mode);
    }
  };
  QObject::connect(clipboard, &QClipboard::changed, &window, clean);
}

}  // namespace quillmark
