#pragma once

#include <string>
#include <string_view>

#include "catalogue/setting.h"

namespace quillmark {

// Settings as users name them: by the radio's word ("pwr") or by the caption of the main window
// ("Power Level"), in any case, blanks and points left out at will.

// Throws Failure, with the nearest names, when there is none. `name` is UTF-8.
const Setting& SettingNamed(std::string_view name);

}  // namespace quillmark
