#pragma once

#include <cstdint>

#include "controls/control.h"

namespace quillmark {

// Colours that the user's theme decides, where a colour of a shape is asked for.
constexpr std::uint32_t ThemeButtonFace = 0x1000000;
constexpr std::uint32_t ThemeButtonShadow = 0x1000001;

// A rectangle or a line: one block of a progress row, or what shows a figure by its place alone,
// for which the logic sets Top and Height and a painted widget draws it. Colours are &HBBGGRR, or
// one of the theme's. Nobody can click on it.
class Shape : public Control {
 public:
  using Control::Control;

  Property<int> BorderStyle{*this, 1};  // 1: a solid line
  Property<int> BorderWidth{*this, 1};  // pixels
  Property<std::uint32_t> BorderColor{*this, ThemeButtonFace};
  Property<std::uint32_t> FillColor{*this, ThemeButtonShadow};
};

}  // namespace quillmark
