#include "controls/clickable.h"

#include <utility>

#include "controls/form.h"

namespace quillmark {

bool Clickable::Click() {
  if (!Reachable()) return false;
  const auto alive = Owner().weak_from_this().lock();
  Clicked();
  if (OnClick) OnClick();
  return true;
}

Notice::Notice(Form& form, Control* container, std::string name)
    : Clickable(form, container, std::move(name)) {
  Visible = false;
}

void Notice::Tell(const std::string& sentence, std::function<void()> act) {
  OnClick = std::move(act);
  Text = sentence;
  Visible = true;
  Changed();  // the handler is no property
}

bool Button::RightClick() {
  if (!OnRightClick || !Reachable()) return false;
  const auto alive = Owner().weak_from_this().lock();
  OnRightClick();
  return true;
}

}  // namespace quillmark
