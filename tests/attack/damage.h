#pragma once

#include <string>
#include <string_view>

#include "attack/faults.h"

namespace quillmark::attack {

// Whether `text` is what became of `whole` when one of its bytes was lost, changed or doubled on
// the line, or with noise when bytes came in between. Equal texts are.
bool MayBecome(std::string_view whole, std::string_view text, Fault::Damage damage);

// In quotes, line ends and control characters made visible.
std::string Quoted(std::string_view text);

}  // namespace quillmark::attack
