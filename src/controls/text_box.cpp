#include "controls/text_box.h"

#include <algorithm>
#include <utility>

#include "controls/form.h"

namespace quillmark {

TextBox::TextBox(Form& form, Control* container, std::string name, std::string text)
    : Control(form, container, std::move(name)), Text(*this, std::move(text)) {}

void TextBox::SetSelStart(std::size_t start) {
  selStart = std::min(start, Text().size());
  selLength = 0;
}

void TextBox::SetSelLength(std::size_t length) {
  selStart = std::min(selStart, Text().size());
  selLength = std::min(length, Text().size() - selStart);
}

void TextBox::SetSelText(std::string_view text) {
  SetSelLength(selLength);
  std::string next = Text();
  next.replace(selStart, selLength, text);
  selStart += text.size();
  selLength = 0;
  Text = std::move(next);
}

bool TextBox::UserEdit(std::string text) {
  if (!Reachable()) return false;
  const auto alive = Owner().weak_from_this().lock();
  std::erase_if(text, [](unsigned char c) { return c < 32 || c == 127; });
  if (MaxLength() != 0 && text.size() > MaxLength()) text.resize(MaxLength());
  Text = std::move(text);
  if (OnChange) OnChange();
  return true;
}

bool TextBox::UserType(std::string_view characters) {
  const std::string typed(characters);
  for (const char character : typed) {
    if (!Reachable()) return false;
    const auto alive = Owner().weak_from_this().lock();
    TypeOne(character);
  }
  return true;
}

void TextBox::TypeOne(char character) {
  const char taken = OnKeyPress ? OnKeyPress(character) : character;
  if (taken == 0) return;
  if (taken == '\b') {
    if (Text().empty()) return;
    SetSelStart(Text().size() - 1);
    SetSelLength(1);
    SetSelText("");
    return;
  }
  SetSelStart(Text().size());
  SetSelText(taken == '\r' ? std::string("\r\n") : std::string(1, taken));
}

bool TextBox::UserLeave() {
  if (!Reachable()) return false;
  const auto alive = Owner().weak_from_this().lock();
  if (OnLostFocus) OnLostFocus();
  return true;
}

}  // namespace quillmark
