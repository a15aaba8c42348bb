#include "qt/text/latin1.h"

#include <QStringList>
#include <cstdlib>

namespace quillmark {

std::string FromQt(const QString& text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (const QChar character : text) {
    if (character.unicode() < 256) bytes += static_cast<char>(character.unicode());
  }
  return bytes;
}

std::string OnOneLine(const std::string& text) {
  std::string line;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
    line += static_cast<unsigned char>(text[at]) < 32 ? ' ' : text[at];
  }
  return line;
}

QString InLines(const std::string& text) {
  QString lines = ToQt(text);
  lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  return lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

QString WithoutMnemonics(const std::string& text) { return WithoutMnemonics(ToQt(text)); }

QString WithoutMnemonics(QString text) {
  return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString ForeignCharacters(const QString& text) {
  QStringList foreign;
  // What stands outside of the first plane takes two characters of Qt's.
  for (const char32_t point : text.toUcs4()) {
    const QString character = QString::fromUcs4(&point, 1);
    if (point > 0xFF && !foreign.contains(character)) foreign << character;
  }
  return foreign.join(QLatin1Char(' '));
}

QString OnTwoLines(const QString& caption) {
  constexpr qsizetype longestOnOneLine = 12;
  if (caption.size() <= longestOnOneLine) return caption;
  qsizetype best = -1;
  for (qsizetype at = caption.indexOf(QLatin1Char(' ')); at >= 0;
       at = caption.indexOf(QLatin1Char(' '), at + 1)) {
    const qsizetype middle = caption.size() / 2;
    if (best < 0 || std::abs(at - middle) < std::abs(best - middle)) best = at;
  }
  return best < 0 ? caption : QString(caption).replace(best, 1, QLatin1Char('\n'));
}

}  // namespace quillmark
