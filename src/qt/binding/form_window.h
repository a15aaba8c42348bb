#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "controls/form.h"
#include "qt/binding/binder.h"

class QDropEvent;

namespace quillmark {

class BesideModal;
class QtEventLoop;
class WindowPlaces;

struct WindowRow;

// A form on the screen: its window, its binder, its close box, its keys, its size. QtWindows makes
// one when the logic shows a form. When the form is unloaded, the window is hidden at once and
// deleted as soon as no act of its user is on the stack. It keeps its form alive that long.
class FormWindow : public QObject, public FormView, public ControlView, public Acts {
  Q_OBJECT

 public:
  // Draws the window of that row. `parent` may be null. `blocked` tells whether a modal window
  // stands in the way. `places` may be null: then no place is remembered. Throws std::logic_error
  // when the window lacks what the row names.
  FormWindow(std::shared_ptr<Form> form, const WindowRow& row, QWidget* parent, QtEventLoop& events,
             WindowPlaces* places, std::function<bool()> blocked);
  ~FormWindow() override;

  // Throws std::logic_error when window and form do not fit.
  void Join();
  void Show();
  // Puts a window that is there already in front.
  void ShowAgain();

  Form& Shown() const { return *form; }
  const WindowRow& Row() const { return row; }
  QWidget* Window() const { return window.data(); }

  void Unloaded(Form& unloaded) override;
  void FocusMoved(Control& control) override;
  void MenuPopsUp(Menu& menu, Control& beside) override;
  void Changed(Control& control) override;
  void Act(const std::function<void()>& act) override;
  void ActAfterwards(const std::function<void()>& act) override;

 signals:
  // The form is unloaded; this object dies soon.
  void Gone();
  // The window has become the active one.
  void Activated();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TakeSize();
  QRect FreeScreen() const;
  QPoint PlaceOn(const QRect& screen) const;
  void StayOnTop();
  void NoteSize();
  bool KeyPressed(int key);
  bool Dragged(QDropEvent& event);
  bool Dropped(QDropEvent& event);
  void RunPostponed();
  void Die();

  std::shared_ptr<Form> form;
  const WindowRow& row;
  QPointer<QWidget> window;
  QtEventLoop& events;
  WindowPlaces* places;
  std::function<bool()> blocked;
  std::unique_ptr<Binder> binder;
  std::unique_ptr<BesideModal> besideModal;
  std::vector<std::function<void()>> postponed;
  int acting = 0;       // acts on the stack
  bool sizing = false;  // the program is changing the window's size
  bool dying = false;
};

}  // namespace quillmark
