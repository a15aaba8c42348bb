#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "controls/control.h"

namespace quillmark {

class Form;
class Menu;

// The window that shows a form.
class FormView {
 public:
  // The form was unloaded: close and hide its window; no act reaches the form any more.
  virtual void Unloaded(Form& form) = 0;
  // A control wants the keyboard focus.
  virtual void FocusMoved(Control& control) = 0;
  // A menu is to come up beside a control.
  virtual void MenuPopsUp(Menu& menu, Control& beside) = 0;

 protected:
  ~FormView() = default;
};

// A window: its controls by name, its caption, whether it is loaded. A form is held by a shared
// pointer; a user's act holds it until its handler has returned, so that a handler may unload its
// own window and still read its controls.
class Form : public Control, public std::enable_shared_from_this<Form> {
 public:
  explicit Form(std::string name);

  Property<std::string> Caption{*this, ""};
  Property<bool> AlwaysOnTop{*this, false};  // above all other windows

  // All controls, timers included, in the order of their making.
  const std::vector<Control*>& Controls() const { return controls; }
  // The control of that name, or null.
  Control* Find(const std::string& controlName) const;

  bool Loaded() const { return loaded; }
  // Runs the form's own Form_Unload, closes the window and lets no further act in. A second call
  // does nothing.
  void Unload();

  // The user's acts: closing the window by its close box, changing its size (inner size in twips),
  // pressing a key that no control takes, clicking beside the controls.
  void UserClose();
  void UserResize(double width, double height);
  void UserKey();
  void UserClick();
  // Coming back to the window from another one, or from another program.
  void UserReturn();
  // Drops a file on the window.
  void UserDrop(const std::filesystem::path& file);

  // Opens a menu beside a control, where the user points.
  void PopupMenu(Menu& menu, Control& beside);

  // Called by whoever shows the forms: this one is about to be shown; another form (no box) became
  // the active one in its place.
  void Activate();
  void Deactivate();

  void SetFormView(FormView* next) { formView = next; }
  Control* Focus() const { return focus; }

 protected:
  // What the close box does; unless told otherwise it unloads the form.
  virtual void Form_Close() { Unload(); }
  virtual void Form_Unload() {}
  virtual void Form_Resize() {}
  virtual void Form_KeyPress() {}
  virtual void Form_Click() {}
  virtual void Form_Drop(const std::filesystem::path&) {}
  virtual void Form_Return() {}
  virtual void Form_Activate() {}
  virtual void Form_Deactivate() {}

 private:
  friend class Control;

  void Add(Control& control);
  long NextDepth() { return ++lastDepth; }
  void MoveFocus(Control& control);

  std::vector<Control*> controls;
  FormView* formView = nullptr;
  Control* focus = nullptr;
  long lastDepth = 0;
  bool loaded = true;
};

}  // namespace quillmark
