#include "qt/binding/qt_windows.h"

#include <QWidget>
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "qt/base/qt_event_loop.h"
#include "qt/binding/form_window.h"
#include "qt/binding/window_registry.h"
#include "text/at_end.h"

namespace quillmark {

namespace {

// A modal window that waits for something looks this often whether it is still wanted.
constexpr Duration modalWait = Seconds(1);

}  // namespace

QtWindows::QtWindows(QtEventLoop& loop, WindowPlaces* kept) : events(loop), places(kept) {}
QtWindows::~QtWindows() { CloseAll(); }

void QtWindows::CloseAll() {
  open.clear();
  const auto all = std::exchange(made, {});
  for (const auto& window : all) delete window.data();
}

QWidget* QtWindows::WindowOf(const Form& form) const {
  for (const FormWindow* window : open) {
    if (&window->Shown() == &form) return window->Window();
  }
  return nullptr;
}

Form* QtWindows::FormNamed(const std::string& name) const {
  for (const FormWindow* window : open) {
    if (window->Shown().Name() == name) return &window->Shown();
  }
  return nullptr;
}

std::unique_ptr<FormWindow> QtWindows::Make(const std::shared_ptr<Form>& form, QWidget* parent) {
  const WindowRow* row = WindowNamed(form->Name());
  if (row == nullptr) throw std::logic_error("There is no window for " + form->Name());
  // The window asks about itself, so it must know its own address.
  const auto self = std::make_shared<FormWindow*>(nullptr);
  auto window = std::make_unique<FormWindow>(form, *row, parent, events, places,
                                             [this, self] { return Blocked(*self); });
  *self = window.get();
  window->Join();
  return window;
}

FormWindow& QtWindows::Open(const std::shared_ptr<Form>& form, QWidget* parent) {
  FormWindow* window = nullptr;
  try {
    window = Make(form, parent).release();
  } catch (const std::logic_error& fault) {
    // No handler may go on as if the window were there.
    misfit = fault.what();
    events.Quit();
    throw Shutdown{};
  }
  connect(window, &FormWindow::Gone, this, [this, window] { std::erase(open, window); });
  connect(window, &FormWindow::Activated, this, [this, window] { NoteActive(window); });
  open.push_back(window);
  std::erase_if(made, [](const QPointer<FormWindow>& gone) { return gone.isNull(); });
  made.emplace_back(window);
  return *window;
}

// Windows that were there before a modal one take no acts while it is up, whether it is seen or
// not.
bool QtWindows::Blocked(const FormWindow* asking) const {
  if (modal.empty() || modal.back().isNull() || asking->Row().BesideModal) return false;
  const auto front = std::find(open.begin(), open.end(), modal.back().data());
  return front != open.end() && std::find(open.begin(), front, asking) != front;
}

void QtWindows::NoteActive(FormWindow* window) {
  // It counts as little as a box.
  if (window->Row().BesideModal) return;
  const QPointer<FormWindow> before = active;
  active = window;
  if (before.isNull() || before == window || std::ranges::count(open, before.data()) == 0) return;
  events.Deliver([&before] { before->Shown().Deactivate(); });
}

// A window that is shown beside the main one stays in front of it.
QWidget* QtWindows::MainWindow() const {
  for (const FormWindow* window : open) {
    if (window->Row().Main) return window->Window();
  }
  return nullptr;
}

void QtWindows::Show(const std::shared_ptr<Form>& form) {
  for (FormWindow* window : open) {
    if (&window->Shown() == form.get()) return window->ShowAgain();
  }
  Open(form, MainWindow()).Show();
}

void QtWindows::ShowModal(const std::shared_ptr<Form>& form, Form& owner) {
  FormWindow& window = Open(form, WindowOf(owner));
  window.Window()->setWindowModality(Qt::ApplicationModal);
  modal.emplace_back(&window);
  // Takes the window off the stack, whatever ends the loop.
  const AtEnd ended([this] { modal.pop_back(); });
  window.Show();
  while (form->Loaded()) events.Wait(modalWait);
}

}  // namespace quillmark
