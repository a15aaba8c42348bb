#pragma once

#include <array>
#include <cstdint>

namespace quillmark {

// The terminal's, as long as the user has chosen none.
inline constexpr std::uint32_t DefaultTextColour = 0x990000;
inline constexpr std::uint32_t DefaultBackColour = 0xFFFFFF;

// The colours to choose from for the terminal. Values are &HBBGGRR.
struct NamedColour {
  const char* Name;
  std::uint32_t Value;
};

constexpr std::array<NamedColour, 10> Colours() {
  return {{{"White", 0xFFFFFF},
           {"Black", 0x000000},
           {"Light Blue", 0xFACD87},
           {"Blue", 0xFF0000},
           {"Navy Blue", 0x990000},
           {"Red", 0x0000FF},
           {"Maroon", 0x00008B},
           {"Green", 0x00BB00},
           {"Dark Green", 0x006400},
           {"Light Yellow", 0xD2FAFA}}};
}

}  // namespace quillmark
