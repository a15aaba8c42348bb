#include "controls/control.h"

#include "controls/form.h"

namespace quillmark {

Control::Control(Form& form, Control* container, std::string name)
    : form(form), container(container), name(std::move(name)) {
  if (container != nullptr) form.Add(*this);
}

Control::~Control() = default;

void Control::Changed() {
  if (view != nullptr) view->Changed(*this);
}

void Control::BringToFront() {
  depth = form.NextDepth();
  Changed();
}

void Control::SetFocus() { form.MoveFocus(*this); }

bool Control::Reachable() const {
  for (const Control* at = this; at != nullptr; at = at->container) {
    if (!at->Enabled() || !at->Visible()) return false;
  }
  return form.Loaded();
}

}  // namespace quillmark
