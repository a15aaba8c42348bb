#pragma once

#include <memory>

namespace quillmark {

class Form;

// Puts the logic's windows on the screen. A window's unload (Form::Unload) takes it off again.
class Windows {
 public:
  virtual ~Windows() = default;

  // Shows a loaded form, beside the others.
  virtual void Show(const std::shared_ptr<Form>& form) = 0;
  // Shows it and returns when it has been unloaded; its owner takes no acts meanwhile.
  virtual void ShowModal(const std::shared_ptr<Form>& form, Form& owner) = 0;
};

}  // namespace quillmark
