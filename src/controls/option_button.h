#pragma once

#include "controls/clickable.h"
#include "controls/form.h"

namespace quillmark {

// One of several that exclude each other: those of the same container whose names are alike but for
// the index ("OnOption_0", "OnOption_1").
class OptionButton : public Clickable {
 public:
  using Clickable::Clickable;

  bool Checked() const { return checked; }
  // Choosing one unchecks the others.
  void SetChecked(bool chosen);

 protected:
  void Clicked() override { SetChecked(true); }

 private:
  bool checked = false;
};

}  // namespace quillmark
