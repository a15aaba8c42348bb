#pragma once

#include "controls/control.h"

namespace quillmark {

// A rectangle or a line that shows a figure by its place alone: the logic sets Top and Height, a
// painted widget draws it. Nobody can click on it.
class Shape : public Control {
 public:
  using Control::Control;
};

}  // namespace quillmark
