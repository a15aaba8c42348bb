#include "qt/binding/locks.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "controls/clickable.h"
#include "controls/form.h"

namespace quillmark {

namespace {

// A control that is locked, and what will make it work.
struct Lock {
  std::string_view Control;  // "Form.Control"; a name that ends in "*" stands for all that begin so
  std::string_view What;
};

// Nothing at present.
constexpr std::array<Lock, 0> locks{};

const Lock* Listed(const Control& control) {
  const std::string name = control.Owner().Name() + "." + control.Name();
  const auto found = std::find_if(std::begin(locks), std::end(locks), [&](const Lock& lock) {
    if (!lock.Control.ends_with('*')) return lock.Control == name;
    return name.starts_with(lock.Control.substr(0, lock.Control.size() - 1));
  });
  return found == std::end(locks) ? nullptr : found;
}

template <class... Kinds>
bool IsOneOf(const Control& control) {
  return ((dynamic_cast<const Kinds*>(&control) != nullptr) || ...);
}

// Whether a user would expect something of a click.
bool PromisesClick(const Clickable& control) {
  if (IsOneOf<Button, ToolButton, MenuItem, Lamp>(control)) return true;
  return IsOneOf<ValueField>(control) && control.MousePointer() == Pointer::Arrow;
}

}  // namespace

std::optional<std::string> LockTip(const Control& control) {
  const auto* clickable = dynamic_cast<const Clickable*>(&control);
  if (clickable == nullptr || clickable->OnClick || !PromisesClick(*clickable)) return std::nullopt;
  const Lock* listed = Listed(control);
  if (listed == nullptr) return std::nullopt;
  return std::string(listed->What) + " comes in a later version.";
}

std::vector<std::string> LockProblems(const Form& form) {
  std::vector<std::string> problems;
  for (const Control* control : form.Controls()) {
    const auto* clickable = dynamic_cast<const Clickable*>(control);
    if (clickable == nullptr) continue;
    const bool listed = Listed(*control) != nullptr;
    if (clickable->OnClick && listed) {
      problems.push_back(control->Name() + " works, but is still in the table of locks");
    } else if (!clickable->OnClick && PromisesClick(*clickable) && !listed) {
      problems.push_back(control->Name() + " does nothing, and is not in the table of locks");
    }
  }
  return problems;
}

}  // namespace quillmark
