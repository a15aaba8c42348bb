#pragma once

#include <QString>
#include <string>

namespace quillmark {

// For tool tips: Qt would show a text that looks like mark-up as such, and a long one on one line.
QString PlainTip(const std::string& text);

}  // namespace quillmark
