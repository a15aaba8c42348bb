#include "controls/form.h"

#include <stdexcept>
#include <utility>

namespace quillmark {

Form::Form(std::string name) : Control(*this, nullptr, std::move(name)) {}

void Form::Add(Control& control) {
  if (Find(control.Name()) != nullptr) {
    throw std::logic_error(Name() + " has two controls named " + control.Name());
  }
  controls.push_back(&control);
}

Control* Form::Find(const std::string& controlName) const {
  for (Control* control : controls) {
    if (control->Name() == controlName) return control;
  }
  return nullptr;
}

void Form::Unload() {
  if (!loaded) return;
  const auto alive = weak_from_this().lock();
  loaded = false;
  Form_Unload();
  if (formView != nullptr) formView->Unloaded(*this);
}

void Form::UserClose() {
  const auto alive = weak_from_this().lock();
  if (loaded && Enabled()) Form_Close();
}

void Form::UserResize(double width, double height) {
  const auto alive = weak_from_this().lock();
  // The height first: a view follows what the logic does to it, and knows this one already.
  Height = height;
  Width = width;
  if (loaded) Form_Resize();
}

void Form::UserKey() {
  const auto alive = weak_from_this().lock();
  if (loaded && Enabled()) Form_KeyPress();
}

void Form::UserClick() {
  const auto alive = weak_from_this().lock();
  if (loaded && Enabled()) Form_Click();
}

void Form::UserReturn() {
  const auto alive = weak_from_this().lock();
  if (loaded && Enabled()) Form_Return();
}

void Form::UserDrop(const std::filesystem::path& file) {
  const auto alive = weak_from_this().lock();
  if (loaded && Enabled()) Form_Drop(file);
}

void Form::PopupMenu(Menu& menu, Control& beside) {
  if (formView != nullptr) formView->MenuPopsUp(menu, beside);
}

void Form::Activate() {
  const auto alive = weak_from_this().lock();
  if (loaded) Form_Activate();
}

void Form::Deactivate() {
  const auto alive = weak_from_this().lock();
  if (loaded) Form_Deactivate();
}

void Form::MoveFocus(Control& control) {
  focus = &control;
  if (formView != nullptr) formView->FocusMoved(control);
}

}  // namespace quillmark
