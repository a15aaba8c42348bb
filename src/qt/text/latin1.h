#pragma once

#include <QString>
#include <string>

namespace quillmark {

// The edge between the logic's single-byte text and Qt's. Every text that crosses it goes through
// these two.

inline QString ToQt(const std::string& text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

// Characters that the radio's alphabet does not have are dropped.
std::string FromQt(const QString& text);

// Line ends and other control characters as blanks, a line end as one.
std::string OnOneLine(const std::string& text);

// A text of several lines: the radio's world ends them with CR LF or with CR.
QString InLines(const std::string& text);

// For places where Qt would take "&" as a mnemonic and the text means the character.
QString WithoutMnemonics(const std::string& text);

// For tool tips: Qt would show a text that looks like mark-up as such, and a long one on one line.
QString PlainTip(const std::string& text);

// A long caption on two lines, broken at the blank nearest to its middle.
QString OnTwoLines(const QString& caption);

}  // namespace quillmark
