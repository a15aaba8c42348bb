#include "qt/widgets/plain_tip.h"

#include <QTextDocument>

#include "qt/text/latin1.h"

namespace quillmark {

QString PlainTip(const std::string& text) {
  const QString tip = ToQt(text);
  // Plain text is not wrapped, and a line could be wider than the screen.
  constexpr qsizetype longestOnOneLine = 100;
  const bool asIs = tip.size() <= longestOnOneLine && !Qt::mightBeRichText(tip);
  return asIs ? tip : QStringLiteral("<qt>%1</qt>").arg(tip.toHtmlEscaped());
}

}  // namespace quillmark
