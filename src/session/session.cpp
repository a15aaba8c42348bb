#include "session/session.h"

#include "text/numbers.h"
#include "text/text.h"

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

std::string VersionIn(std::string_view value) {
  constexpr std::ptrdiff_t position = 13;
  constexpr std::ptrdiff_t length = 5;
  return Mid(value, position, length).value_or("");
}

bool HasVersionForm(std::string_view version) {
  if (version.size() != 5 || version[1] != '.') return false;
  const auto marks = [](char c) { return c >= '0' && c != ':'; };
  const bool longMiddle = version[4] == '.' && marks(version[3]);
  return marks(version[0]) && marks(version[2]) &&
         (longMiddle || (version[3] == '.' && marks(version[4])));
}

Revision RevisionOf(std::string_view version) {
  Revision revision;
  if (!version.empty()) revision.Text += version.front();
  if (version.size() > 2) revision.Text += version[2];
  if (!version.empty()) revision.Text += version.back();
  return revision;
}

}  // namespace quillmark
