#pragma once

#include <string>
#include <utility>

namespace quillmark {

class Form;
class Control;

// Told when something about its control has really changed; it reads the control again.
class ControlView {
 public:
  virtual void Changed(Control& control) = 0;

 protected:
  ~ControlView() = default;
};

// A value of a control. `Mode.Text = "MODE M"` sets it and tells the view if that is a change;
// `Mode.Text()` reads it.
template <class T>
class Property {
 public:
  Property(Control& owner, T initial) : owner(owner), value(std::move(initial)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;

  const T& operator()() const { return value; }
  Property& operator=(T next);

 private:
  Control& owner;
  T value;
};

// What every control of a window has. The logic owns the controls; a view is joined to them by name
// and shows them. The program sets properties; the user acts through the calls that each kind adds
// (Click, UserEdit, ...). Setting a property calls no handler, so there are no loops. A control
// lives as long as its form.
class Control {
 public:
  // `container` is the form itself or a frame.
  Control(Form& form, Control* container, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  const std::string& Name() const { return name; }
  Form& Owner() const { return form; }
  Control* Container() const { return container; }

  Property<bool> Enabled{*this, true};
  Property<bool> Visible{*this, true};
  Property<std::string> ToolTip{*this, ""};
  Property<std::string> Tag{*this, ""};
  // Twips from the container's edge, where the logic sets them.
  Property<double> Left{*this, 0};
  Property<double> Top{*this, 0};
  Property<double> Width{*this, 0};
  Property<double> Height{*this, 0};

  // Puts the control in front of its siblings; the one with the greatest Depth is in front.
  void BringToFront();
  long Depth() const { return depth; }
  // Wants the keyboard focus.
  void SetFocus();

  // Whether a user can act on it: it and all that holds it are enabled and visible, and its window
  // is loaded.
  bool Reachable() const;

  // At most one; null removes it. The view lives until it is removed.
  void SetView(ControlView* next) { view = next; }

 protected:
  // Called after each real change of a property.
  virtual void Changed();

 private:
  template <class T>
  friend class Property;

  Form& form;
  Control* container;
  std::string name;
  long depth = 0;
  ControlView* view = nullptr;
};

template <class T>
Property<T>& Property<T>::operator=(T next) {
  if (value == next) return *this;
  value = std::move(next);
  owner.Changed();
  return *this;
}

}  // namespace quillmark
