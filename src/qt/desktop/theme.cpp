#include "qt/desktop/theme.h"

#include <QApplication>
#include <QPalette>

namespace quillmark {

namespace {

// A part of the palette and its colours.
struct Role {
  QPalette::ColorRole Colored;
  QRgb Color;
  QRgb WhenDisabled;
};

constexpr Role roles[] = {
    {QPalette::Window, 0xFF2B2E33, 0xFF2B2E33},
    {QPalette::WindowText, 0xFFE6E8EB, 0xFF868C95},
    {QPalette::Base, 0xFF202327, 0xFF272A2F},
    {QPalette::AlternateBase, 0xFF292C31, 0xFF292C31},
    {QPalette::Text, 0xFFE6E8EB, 0xFF868C95},
    {QPalette::PlaceholderText, 0xFF9AA0A8, 0xFF868C95},
    {QPalette::Button, 0xFF373B41, 0xFF303338},
    {QPalette::ButtonText, 0xFFE6E8EB, 0xFF868C95},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFC0C4C9},
    {QPalette::ToolTipBase, 0xFF3A3F46, 0xFF3A3F46},
    {QPalette::ToolTipText, 0xFFE6E8EB, 0xFFE6E8EB},
    {QPalette::Light, 0xFF4C5158, 0xFF4C5158},
    {QPalette::Midlight, 0xFF41454C, 0xFF41454C},
    {QPalette::Mid, 0xFF5A6068, 0xFF474C53},
    {QPalette::Dark, 0xFF1A1C1F, 0xFF1A1C1F},
    {QPalette::Shadow, 0xFF121315, 0xFF121315},
    {QPalette::Highlight, 0xFF3B82C4, 0xFF4A5561},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFC0C4C9},
    {QPalette::Link, 0xFF6FB6EE, 0xFF868C95},
    {QPalette::LinkVisited, 0xFFB79BE8, 0xFF868C95},
};

// The style draws the rim of check boxes and radio buttons darker than the ground, which is lost on
// a dark one; so they are filled with a lighter colour.
constexpr QRgb indicatorFill = 0xFF4C525A;
constexpr QRgb indicatorFillWhenDisabled = 0xFF363A40;

}  // namespace

void UseDarkTheme() {
  QApplication::setStyle(QStringLiteral("Fusion"));
  QPalette palette;
  for (const Role& role : roles) {
    palette.setColor(role.Colored, QColor::fromRgb(role.Color));
    palette.setColor(QPalette::Disabled, role.Colored, QColor::fromRgb(role.WhenDisabled));
  }
  QApplication::setPalette(palette);
  palette.setColor(QPalette::Base, QColor::fromRgb(indicatorFill));
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor::fromRgb(indicatorFillWhenDisabled));
  for (const char* kind : {"QCheckBox", "QRadioButton"}) QApplication::setPalette(palette, kind);
}

}  // namespace quillmark
