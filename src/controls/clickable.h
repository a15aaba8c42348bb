#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "controls/control.h"

namespace quillmark {

// The shape of the mouse pointer over a control.
enum class Pointer { Default = 0, Arrow = 1, NoDrop = 12 };

// A control with a text that a user can click on: its caption or its value. Kinds that need no more
// than that are told apart by their type alone, so that a view can insist on the right widget.
class Clickable : public Control {
 public:
  Clickable(Form& form, Control* container, std::string name, std::string text = {})
      : Control(form, container, std::move(name)), Text(*this, std::move(text)) {}

  Property<std::string> Text;  // in captions of buttons and menus "&" marks the mnemonic
  Property<Pointer> MousePointer{*this, Pointer::Default};
  Property<double> FontSize{*this, 0};          // points; 0 is the window's own
  Property<std::uint32_t> ForeColor{*this, 0};  // &HBBGGRR; 0 is the window's own

  std::function<void()> OnClick;

  // The user's click; does nothing and tells false when the control can't be reached.
  bool Click();

 protected:
  // What the control itself does at a click, before its handler.
  virtual void Clicked() {}
};

// A text beside other controls.
class Label : public Clickable {
 public:
  using Clickable::Clickable;
};

// A push button.
class Button : public Clickable {
 public:
  using Clickable::Clickable;

  std::function<void()> OnRightClick;

  // The user's click with the other mouse button; false when the button can't be reached or has no
  // use for it.
  bool RightClick();
};

// The lamp that shows whether the link is up.
class Lamp : public Clickable {
 public:
  using Clickable::Clickable;

  Property<bool> Warns{*this, false};  // shows a warning in place of its own sign
};

// A button of the toolbar.
class ToolButton : public Clickable {
 public:
  using Clickable::Clickable;
};

// A read-only text that shows a value of the radio.
class ValueField : public Clickable {
 public:
  using Clickable::Clickable;

  Property<std::string> Mark{*this, ""};  // what is wrong with the value; empty: nothing
  Property<bool> Stale{*this, false};     // of a link that is over; dimmed, and still readable
  Property<bool> Found{*this, false};     // the one that was looked for
};

// A box around other controls, with a caption.
class Frame : public Clickable {
 public:
  using Clickable::Clickable;
};

// A field of the status bar.
class StatusPanel : public Clickable {
 public:
  using Clickable::Clickable;
};

// A sentence that comes and goes. With a handler it can be clicked.
class Notice : public Clickable {
 public:
  Notice(Form& form, Control* container, std::string name);

  // Shows the sentence; a click calls `act`.
  void Tell(const std::string& sentence, std::function<void()> act = {});
  void Drop() { Visible = false; }
};

// An entry of a menu.
class MenuItem : public Clickable {
 public:
  using Clickable::Clickable;

  Property<bool> Checked{*this, false};
};

// A menu that holds items.
class Menu : public Clickable {
 public:
  using Clickable::Clickable;
};

// Toggles itself at a click, before its handler runs.
class CheckBox : public Clickable {
 public:
  using Clickable::Clickable;

  Property<bool> Checked{*this, false};

 protected:
  void Clicked() override { Checked = !Checked(); }
};

}  // namespace quillmark
