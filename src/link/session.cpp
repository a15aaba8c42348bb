#include "link/session.h"

#include "text/numbers.h"

namespace quillmark {

std::optional<double> Revision::Number() const { return NumericValue(Text); }

bool Revision::AtLeast(double threshold) const {
  const auto number = Number();
  return number && *number >= threshold;
}

bool Revision::Below(double threshold) const {
  const auto number = Number();
  return number && *number < threshold;
}

}  // namespace quillmark
