#include "controls/clickable.h"

#include "controls/form.h"

namespace quillmark {

bool Clickable::Click() {
  if (!Reachable()) return false;
  const auto alive = Owner().weak_from_this().lock();
  Clicked();
  if (OnClick) OnClick();
  return true;
}

bool Button::RightClick() {
  if (!OnRightClick || !Reachable()) return false;
  const auto alive = Owner().weak_from_this().lock();
  OnRightClick();
  return true;
}

}  // namespace quillmark
