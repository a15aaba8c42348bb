#pragma once

#include <QColor>
#include <cstdint>

namespace quillmark {

// A colour of the logic, &HBBGGRR.
inline QColor ToColor(std::uint32_t blueGreenRed) {
  return QColor(static_cast<int>(blueGreenRed & 0xFF), static_cast<int>(blueGreenRed >> 8 & 0xFF),
                static_cast<int>(blueGreenRed >> 16 & 0xFF));
}

}  // namespace quillmark
