#include "qt/desktop/contrast.h"

#include <algorithm>
#include <cmath>

namespace quillmark {

namespace {

// An ink of a palette and the ground that it stands on.
struct Pair {
  QPalette::ColorRole Ink;
  QPalette::ColorRole Ground;
  // Styles draw some grounds off the palette's colour; the shade of a button most.
  double Reserve = 1.15;
};

constexpr Pair pairs[] = {
    {QPalette::WindowText, QPalette::Window},    {QPalette::Text, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},   {QPalette::ButtonText, QPalette::Button, 1.4},
    {QPalette::PlaceholderText, QPalette::Base}, {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::Link, QPalette::Window},          {QPalette::LinkVisited, QPalette::Window},
};

constexpr double step = 0.04;
double Linear(double share) {
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
         0.0722 * Linear(color.blueF());
}

QColor Mixed(const QColor& color, const QColor& with, double share) {
  const auto mix = [share](float from, float to) {
    return static_cast<float>(from + (to - from) * share);
  };
  return QColor::fromRgbF(mix(color.redF(), with.redF()), mix(color.greenF(), with.greenF()),
                          mix(color.blueF(), with.blueF()));
}

QColor Opposite(const QColor& color) {
  return Contrast(Qt::white, color) > Contrast(Qt::black, color) ? Qt::white : Qt::black;
}

// `color` as far towards `end` as it takes to stand out from `other`.
QColor MovedOff(const QColor& color, const QColor& other, const QColor& end, double least) {
  for (double share = 0; share < 1; share += step) {
    const QColor moved = Mixed(color, end, share);
    if (Contrast(moved, other) >= least) return moved;
  }
  return end;
}

}  // namespace

double Contrast(const QColor& ink, const QColor& ground) {
  const auto [dark, light] = std::minmax(Luminance(ink), Luminance(ground));
  return (light + 0.05) / (dark + 0.05);
}

bool IsDark(const QPalette& palette) {
  return Luminance(palette.color(QPalette::Window)) <
         Luminance(palette.color(QPalette::WindowText));
}

QPalette Readable(QPalette palette) {
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (const Pair& pair : pairs) {
      const QColor ground = palette.color(group, pair.Ground);
      // A see-through ink counts as it looks.
      QColor ink = palette.color(group, pair.Ink);
      ink = Mixed(ground, ink, ink.alphaF());
      const double wanted = leastContrast * pair.Reserve;
      if (Contrast(ink, ground) >= wanted) continue;
      palette.setColor(group, pair.Ink, MovedOff(ink, ground, Opposite(ground), wanted));
    }
    const QColor selected = palette.color(group, QPalette::HighlightedText);
    const QColor ground = palette.color(group, QPalette::Highlight);
    if (Contrast(selected, ground) >= leastContrast) continue;
    palette.setColor(group, QPalette::Highlight,
                     MovedOff(ground, selected, Opposite(selected), leastContrast));
  }
  return palette;
}

}  // namespace quillmark
