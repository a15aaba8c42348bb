#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "controls/control.h"

namespace quillmark {

// A field for typing. `Text` is the truth, CR LF and all; the widget only shows it.
class TextBox : public Control {
 public:
  TextBox(Form& form, Control* container, std::string name, std::string text = {});

  Property<std::string> Text;
  Property<std::uint32_t> ForeColor{*this, 0x000000};  // &HBBGGRR
  Property<std::uint32_t> BackColor{*this, 0xFFFFFF};
  Property<bool> Bold{*this, false};
  Property<std::size_t> MaxLength{*this, 0};  // characters; 0 is no limit
  Property<bool> Secret{*this, false};        // shown as "*"
  // What is wrong with the text of a field, as a sentence; empty: nothing is known.
  Property<std::string> Problem{*this, ""};
  // What is wrong with lines of a text to read, by their numbers from 1.
  Property<std::map<std::size_t, std::string>> Remarks{*this, {}};

  // The place where SelText goes, counted from 0, and how many characters it replaces.
  std::size_t SelStart() const { return selStart; }
  void SetSelStart(std::size_t start);
  std::size_t SelLength() const { return selLength; }
  void SetSelLength(std::size_t length);
  void SetSelText(std::string_view text);

  // Called for each character typed; returns the character to put into the box, 0 for none.
  std::function<char(char)> OnKeyPress;
  std::function<void()> OnChange;
  std::function<void()> OnLostFocus;

  // The user's acts. They tell false when the box can't be reached. UserEdit replaces the whole
  // text; control characters are removed and MaxLength is kept. UserType types character by
  // character through OnKeyPress.
  bool UserEdit(std::string text);
  bool UserType(std::string_view characters);
  bool UserLeave();

 private:
  void TypeOne(char character);

  std::size_t selStart = 0;
  std::size_t selLength = 0;
};

}  // namespace quillmark
