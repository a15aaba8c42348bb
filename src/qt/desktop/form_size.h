#pragma once

#include <cmath>

namespace quillmark {

// The logic measures windows in twips, 1440 to the inch; a logical pixel is 15 of them.
constexpr double twipsPerPixel = 15;

inline int ToPixels(double twips) { return static_cast<int>(std::lround(twips / twipsPerPixel)); }
inline double ToTwips(int pixels) { return pixels * twipsPerPixel; }

}  // namespace quillmark
