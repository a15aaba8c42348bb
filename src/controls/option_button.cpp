#include "controls/option_button.h"

#include <string_view>

namespace quillmark {

namespace {

std::string_view ArrayName(const Control& control) {
  const std::string_view name = control.Name();
  return name.substr(0, name.rfind('_'));
}

}  // namespace

void OptionButton::SetChecked(bool chosen) {
  if (checked == chosen) return;
  checked = chosen;
  Changed();
  if (!chosen) return;
  for (Control* each : Owner().Controls()) {
    auto* other = dynamic_cast<OptionButton*>(each);
    if (other == nullptr || other == this || other->Container() != Container()) continue;
    if (ArrayName(*other) == ArrayName(*this)) other->SetChecked(false);
  }
}

}  // namespace quillmark
