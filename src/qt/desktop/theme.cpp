#include "qt/desktop/theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <span>

#include "qt/desktop/contrast.h"

namespace quillmark {

namespace {

// A part of the palette and its colours.
struct Role {
  QPalette::ColorRole Colored;
  QRgb Color;
  QRgb WhenDisabled;
};

constexpr Role dark[] = {
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

// The same, for a desktop that is dark where the user wants light windows.
constexpr Role light[] = {
    {QPalette::Window, 0xFFEFEFEF, 0xFFEFEFEF},
    {QPalette::WindowText, 0xFF000000, 0xFF6A6A6A},
    {QPalette::Base, 0xFFFFFFFF, 0xFFEFEFEF},
    {QPalette::AlternateBase, 0xFFF7F7F7, 0xFFF7F7F7},
    {QPalette::Text, 0xFF000000, 0xFF6A6A6A},
    {QPalette::PlaceholderText, 0xFF6A6A6A, 0xFF6A6A6A},
    {QPalette::Button, 0xFFEFEFEF, 0xFFEFEFEF},
    {QPalette::ButtonText, 0xFF000000, 0xFF6A6A6A},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::ToolTipBase, 0xFFFFFFDC, 0xFFFFFFDC},
    {QPalette::ToolTipText, 0xFF000000, 0xFF000000},
    {QPalette::Light, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Midlight, 0xFFCACACA, 0xFFCACACA},
    {QPalette::Mid, 0xFFB8B8B8, 0xFFB8B8B8},
    {QPalette::Dark, 0xFF9F9F9F, 0xFFBEBEBE},
    {QPalette::Shadow, 0xFF767676, 0xFFB1B1B1},
    {QPalette::Highlight, 0xFF2878AC, 0xFF919191},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Link, 0xFF0000FF, 0xFF6A6A6A},
    {QPalette::LinkVisited, 0xFF8000B0, 0xFF6A6A6A},
};

// The style draws the rim of check boxes and radio buttons darker than the ground, which is lost on
// a dark one; so they are filled with a lighter colour.
constexpr QRgb indicatorFill = 0xFF4C525A;
constexpr QRgb indicatorFillWhenDisabled = 0xFF363A40;

constexpr const char* indicators[] = {"QCheckBox", "QRadioButton"};

QPalette Colors(std::span<const Role> roles) {
  QPalette palette;
  for (const Role& role : roles) {
    palette.setColor(role.Colored, QColor::fromRgb(role.Color));
    palette.setColor(QPalette::Disabled, role.Colored, QColor::fromRgb(role.WhenDisabled));
  }
  return palette;
}

void UseStyle(const QString& name) {
  if (QApplication::style()->name() != name) QApplication::setStyle(name);
}

void FillIndicators(QPalette palette) {
  palette.setColor(QPalette::Base, QColor::fromRgb(indicatorFill));
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor::fromRgb(indicatorFillWhenDisabled));
  for (const char* kind : indicators) QApplication::setPalette(palette, kind);
}

}  // namespace

ThemeSetter::ThemeSetter() : usualStyle(QApplication::style()->name()) {
  connect(&scheme, &DesktopScheme::Changed, this, &ThemeSetter::Apply);
}

void ThemeSetter::Use(Theme next) {
  wanted = next;
  Apply();
}

void ThemeSetter::Apply() {
  UseStyle(usualStyle);
  QApplication::setPalette(QPalette());
  for (const char* kind : indicators) QApplication::setPalette(QPalette(), kind);
  const bool desktopIsDark = IsDark(QApplication::palette());
  const bool asksForDark = desktopIsDark || scheme.PrefersDark();
  const bool useDark = wanted == Theme::Dark || (wanted == Theme::AsDesktop && asksForDark);
  QPalette palette = QApplication::palette();
  if (useDark != desktopIsDark) {
    UseStyle(QStringLiteral("fusion"));
    palette = useDark ? Colors(dark) : Colors(light);
  }
  palette = Readable(palette);
  QApplication::setPalette(palette);
  if (useDark && !desktopIsDark) FillIndicators(palette);
}

}  // namespace quillmark
