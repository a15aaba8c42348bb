#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "controls/form.h"

namespace quillmark {

// A widget that draws many controls of its window by itself, where a widget for each would be
// hundreds of labels. The binder finds it among the widgets of a window whose row in the registry
// says that it paints, and joins it.
class PaintedControls {
 public:
  // The names of the controls that it draws; the form has each of them.
  virtual std::vector<std::string> Drawn() const = 0;
  // Called once. Throws std::logic_error when one of them is of another kind.
  virtual void Join(const Form& form) = 0;
  // One of them has changed.
  virtual void ControlChanged(const Control& control) = 0;

 protected:
  ~PaintedControls() = default;
};

// The control of that name. Throws std::logic_error when it is not there or of another kind.
template <class Kind>
const Kind& DrawnControl(const Form& form, const std::string& name) {
  const auto* control = dynamic_cast<const Kind*>(form.Find(name));
  if (control == nullptr) throw std::logic_error(name + " is of a kind that is not drawn");
  return *control;
}

}  // namespace quillmark
