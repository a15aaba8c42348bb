#pragma once

#include <span>
#include <string_view>

class QWidget;

namespace quillmark {

// What a window has before it is shown.
enum class FirstSize {
  OfLayout,  // as much room as its widgets want
  OfForm,    // the form's Width and Height, or more where its widgets want more
};

// Where a window comes up.
enum class Place {
  OverOwner,    // in the middle of its owner, or of the screen when it has none
  OnScreen,     // in the middle of the screen
  BesideOwner,  // to the left of a dialog that it explains
};

// What becomes of a key that no control of the window takes.
enum class Keys {
  Escape,      // Escape clicks EscapeClicks; other keys do nothing
  EscapeEnds,  // Escape closes the window, which has nothing to click
  ToForm,      // the form is told of each key
};

// One window of the console. Everything that a form in forms/ cannot say of a window, and the code
// would otherwise have to guess from names, stands here.
struct WindowRow {
  // Of the class in the logic, of the form in forms/ and of the window object.
  std::string_view Name;
  // Makes the window: what is drawn in its form, and what a form cannot hold. `parent` owns it, or
  // the caller when that is null.
  QWidget* (*Draw)(QWidget* parent);
  // Whether some of its widgets are PaintedControls.
  bool Paints = false;
  // The one window that stays as long as the program does. The others stay in front of it.
  bool Main = false;
  // Goes away without the user. So no box belongs to it.
  bool Passes = false;
  // A file that is dropped on it goes to the form.
  bool TakesFiles = false;
  // The page of the manual that F1 opens; empty when it opens none.
  std::string_view Help = {};
  // Can be used while a modal window is up, and no box belongs to it either.
  bool BesideModal = false;
  FirstSize Size = FirstSize::OfLayout;
  Place Stands = Place::OverOwner;
  // Comes up where the user left it, as large as it was then. Else each time at its first place.
  bool Remembered = false;
  Keys TakesKeys = Keys::Escape;
  // The button that Enter clicks; empty when there is none.
  std::string_view DefaultButton = {};
  // The button or the menu entry by which the user leaves the window without a change; empty when
  // there is none.
  std::string_view EscapeClicks = {};
};

// All windows, in the order of the rooms that they belong to.
std::span<const WindowRow> AllWindows();

// The window of that name, or null.
const WindowRow* WindowNamed(std::string_view name);

// The row of the window that a box or a file dialog belongs to, or its own; null when there is
// none.
const WindowRow* RowAbove(const QWidget& window);

// The window of a row, ready to be joined to its form; its default button is set. `parent` owns it,
// or the caller when that is null. Throws std::logic_error when the window lacks a button or menu
// entry that the row names.
QWidget* MakeWindow(const WindowRow& row, QWidget* parent);

// Clicks what the row names as EscapeClicks. False when the row names nothing.
bool ClickEscape(const WindowRow& row, const QWidget& window);

}  // namespace quillmark
