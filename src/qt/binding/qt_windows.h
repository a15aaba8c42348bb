#pragma once

#include <QObject>
#include <QPointer>
#include <memory>
#include <string>
#include <vector>

#include "platform/windows.h"

class QWidget;

namespace quillmark {

class FormWindow;
class QtEventLoop;
class WindowPlaces;

// Puts the logic's forms on the screen, each in the window that the registry has for it. The
// program makes one, and closes it (CloseAll) before the logic dies.
class QtWindows : public QObject, public Windows {
 public:
  // `places` outlives it, or is null: then no window's place is remembered.
  explicit QtWindows(QtEventLoop& events, WindowPlaces* places = nullptr);
  ~QtWindows() override;

  // When a form and its window do not fit, the program ends and Misfit tells why.
  void Show(const std::shared_ptr<Form>& form) override;
  void ShowModal(const std::shared_ptr<Form>& form, Form& owner) override;

  // The window of a form that is shown, or null.
  QWidget* WindowOf(const Form& form) const;
  // The form of that name that is shown, or null.
  Form* FormNamed(const std::string& name) const;
  // The main window, or null as long as it is not shown.
  QWidget* MainWindow() const;
  // From now on no window comes up where it stood in another run, and none is remembered.
  void ForgetPlaces() { places = nullptr; }
  // Deletes all windows.
  void CloseAll();
  // What is wrong with a window, line by line; empty as long as all fit.
  const std::string& Misfit() const { return misfit; }

 private:
  FormWindow& Open(const std::shared_ptr<Form>& form, QWidget* parent);
  std::unique_ptr<FormWindow> Make(const std::shared_ptr<Form>& form, QWidget* parent);
  bool Blocked(const FormWindow* asking) const;
  void NoteActive(FormWindow* window);

  QtEventLoop& events;
  WindowPlaces* places;
  std::string misfit;
  std::vector<FormWindow*> open;            // in the order of their opening
  std::vector<QPointer<FormWindow>> made;   // those that are about to die included
  std::vector<QPointer<FormWindow>> modal;  // the last is in front
  QPointer<FormWindow> active;
};

}  // namespace quillmark
