#include "controls/choices.h"

#include <algorithm>
#include <utility>

#include "controls/form.h"

namespace quillmark {

void ListBox::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(Items().size())) index = -1;
  const std::string next = index < 0 ? std::string() : Items()[static_cast<std::size_t>(index)];
  if (index == listIndex && next == text) return;
  listIndex = index;
  text = next;
  Changed();
}

void ListBox::SetText(std::string next) {
  const auto at = std::find(Items().begin(), Items().end(), next);
  const int index = at == Items().end() ? -1 : static_cast<int>(at - Items().begin());
  if (index == listIndex && next == text) return;
  listIndex = index;
  text = std::move(next);
  Changed();
}

bool ListBox::UserSelect(int index) {
  if (!Reachable() || index < 0 || index >= static_cast<int>(Items().size())) return false;
  const auto alive = Owner().weak_from_this().lock();
  SetListIndex(index);
  if (OnChange) OnChange();
  return true;
}

bool ListBox::UserEdit(std::string next) {
  if (!Reachable() || !Editable()) return false;
  const auto alive = Owner().weak_from_this().lock();
  std::erase_if(next, [](unsigned char c) { return c < 32 || c == 127; });
  SetText(std::move(next));
  if (OnChange) OnChange();
  return true;
}

bool Slider::UserSlide(int value) {
  if (!Reachable()) return false;
  Value = std::clamp(value, Min(), Max());
  return true;
}

std::string TabStrip::Caption(std::size_t tab) const {
  const int count = tab < Counts().size() ? Counts()[tab] : 0;
  return Tabs.at(tab) + (count == 0 ? "" : " (" + std::to_string(count) + ")");
}

bool TabStrip::UserSelect(int index) {
  if (!Reachable() || index < 1 || index > static_cast<int>(Tabs.size())) return false;
  const auto alive = Owner().weak_from_this().lock();
  SelectedIndex = index;
  if (OnClick) OnClick();
  return true;
}

}  // namespace quillmark
