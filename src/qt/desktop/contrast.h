#pragma once

#include <QColor>
#include <QPalette>

namespace quillmark {

// How well a text can be read on a ground: 1 for the same colour, 21 for black on white, by the
// formula of the Web Content Accessibility Guidelines. Both colours are opaque.
double Contrast(const QColor& ink, const QColor& ground);

// What a text needs, also one that stands for something that can't be used now.
inline constexpr double leastContrast = 4.5;

bool IsDark(const QPalette& palette);

// The palette with those of its colours changed in which a text could not be read: inks move away
// from their ground; where an ink is at its end already the ground of a selection moves.
QPalette Readable(QPalette palette);

}  // namespace quillmark
