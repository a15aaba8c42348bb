#pragma once

#include <QString>
#include <string>

namespace quillmark {

// Between the logic's single-byte text and Qt's. Every text that goes from one to the other passes
// through ToQt or FromQt.

inline QString ToQt(const std::string& text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// Characters that the radio's alphabet does not have are dropped.
std::string FromQt(const QString& text);

// Line ends and other control characters as blanks, a line end as one.
std::string OnOneLine(const std::string& text);

// A text of several lines, which end with CR LF or with CR, as Qt wants it.
QString InLines(const std::string& text);

// For places where Qt would take "&" as a mnemonic and the text means the character.
QString WithoutMnemonics(const std::string& text);
QString WithoutMnemonics(QString text);

// The characters of a text that the radio's alphabet does not have, each once.
QString ForeignCharacters(const QString& text);

// A long caption on two lines, broken at the blank nearest to its middle.
QString OnTwoLines(const QString& caption);

}  // namespace quillmark
