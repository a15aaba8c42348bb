#include "qt/binding/form_window.h"

#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QMainWindow>
#include <QMimeData>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <algorithm>

#include "qt/base/qt_event_loop.h"
#include "qt/binding/beside_modal.h"
#include "qt/binding/focus_keeper.h"
#include "qt/binding/window_fit.h"
#include "qt/binding/window_places.h"
#include "qt/binding/window_registry.h"
#include "qt/desktop/form_size.h"
#include "qt/text/latin1.h"
#include "qt/widgets/terminal_view.h"

namespace quillmark {

namespace {

constexpr double helpDistance = 120;  // twips between a dialog and the window that explains it
constexpr int mouseLook = 20;         // ms between looks for the release of a mouse button

// The one file of this machine that is being dragged; empty when it is anything else.
QString DraggedFile(const QDropEvent& event) {
  const QList<QUrl> addresses = event.mimeData()->urls();
  return addresses.size() == 1 ? addresses.front().toLocalFile() : QString();
}

// Without them a line to type into would take a file's address as text.
void LeaveDropsTo(QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) widget->setAcceptDrops(false);
  window.setAcceptDrops(true);
}

}  // namespace

FormWindow::FormWindow(std::shared_ptr<Form> shownForm, const WindowRow& itsRow, QWidget* parent,
                       QtEventLoop& loop, WindowPlaces* kept, std::function<bool()> isBlocked)
    : form(std::move(shownForm)),
      row(itsRow),
      window(MakeWindow(row, parent)),
      events(loop),
      places(row.Remembered ? kept : nullptr),
      blocked(std::move(isBlocked)),
      binder(std::make_unique<Binder>(*form, *window, *this, row.Paints)) {}

FormWindow::~FormWindow() {
  form->SetFormView(nullptr);
  form->SetView(nullptr);
  binder.reset();
  delete window.data();
}

void FormWindow::Join() {
  binder->Join();
  form->SetFormView(this);
  form->SetView(this);
  window->setWindowTitle(ToQt(form->Caption()));
  window->installEventFilter(this);
  if (row.TakesFiles) LeaveDropsTo(*window);
  new FocusKeeper(*window);
  for (TerminalView* terminal : window->findChildren<TerminalView*>()) {
    connect(&events, &QtEventLoop::AboutToSleep, terminal, &TerminalView::Flush);
  }
}

void FormWindow::Show() {
  form->Activate();
  TakeSize();
  StayOnTop();
  if (row.BesideModal) besideModal = std::make_unique<BesideModal>(*window);
  if (form->Visible()) window->show();
  if (besideModal) besideModal->Follow();
  NoteSize();
  if (const Control* focus = form->Focus()) binder->MoveFocus(*focus);
}

void FormWindow::ShowAgain() {
  form->Activate();
  window->show();
  window->raise();
  // The user has asked for this one, and goes on in it.
  if (row.BesideModal) window->activateWindow();
}

// A change of this flag hides a window: it is made before the window is shown.
void FormWindow::StayOnTop() {
  window->setWindowFlag(Qt::WindowStaysOnTopHint, form->AlwaysOnTop());
}

// A window is never smaller than its layout wants, nor larger than the screen.
void FormWindow::TakeSize() {
  sizing = true;
  window->ensurePolished();
  const QRect screen = FreeScreen();
  const QSize room = RoomOn(screen, *window);
  // Without a screen there is none to be too large for.
  const bool bounded = QGuiApplication::platformName() != QLatin1String("offscreen");
  if (bounded) FitInto(*window, room);
  if (row.Size == FirstSize::OfForm) {
    const QSize wanted(ToPixels(form->Width()), ToPixels(form->Height()));
    window->resize(wanted.expandedTo(window->sizeHint()));
  } else {
    // adjustSize keeps to a part of the screen, which can be too little.
    window->adjustSize();
    window->resize(window->size().expandedTo(window->sizeHint()));
  }
  const bool placed = places != nullptr && places->PutBack(*window);
  if (bounded) window->resize(window->size().boundedTo(room));
  // The frame comes to the window's size.
  const QRect inFrame(screen.topLeft(), room);
  if (!placed) window->move(Within(inFrame, PlaceOn(screen), window->size()));
  sizing = false;
}

QRect FormWindow::FreeScreen() const {
  const QWidget* owner = window->parentWidget();
  const QWidget* shown = owner != nullptr && owner->isVisible() ? owner : window.data();
  return shown->screen()->availableGeometry();
}

// Beside an owner that is no dialog there is nothing to explain.
QPoint FormWindow::PlaceOn(const QRect& screen) const {
  const QWidget* owner = window->parentWidget();
  const bool alone = owner == nullptr || !owner->isVisible();
  if (alone || row.Stands == Place::OnScreen) return screen.center() - window->rect().center();
  if (row.Stands == Place::OverOwner || qobject_cast<const QDialog*>(owner) == nullptr) {
    return owner->geometry().center() - window->rect().center();
  }
  const int left = owner->frameGeometry().left() - ToPixels(helpDistance) - window->width();
  return {left, owner->frameGeometry().top()};
}

void FormWindow::NoteSize() {
  events.Deliver([this] { form->UserResize(ToTwips(window->width()), ToTwips(window->height())); });
}

void FormWindow::Changed(Control&) {
  if (dying || window.isNull()) return;
  window->setWindowTitle(ToQt(form->Caption()));
  if (window->isVisible() != form->Visible()) window->setVisible(form->Visible());
}

void FormWindow::FocusMoved(Control& control) {
  if (!dying) binder->MoveFocus(control);
}

void FormWindow::MenuPopsUp(Menu& menu, Control& beside) {
  if (!dying) binder->PopUp(menu, beside);
}

void FormWindow::Unloaded(Form&) {
  dying = true;
  if (!window.isNull()) {
    if (places != nullptr) places->Note(*window);
    window->hide();
  }
  emit Gone();
  Die();
}

// The widget whose click is on the stack must not be deleted before the click has returned.
void FormWindow::Die() {
  if (dying && acting == 0) deleteLater();
}

void FormWindow::Act(const std::function<void()>& act) {
  if (dying || blocked()) return;
  ++acting;
  events.Deliver(act);
  --acting;
  RunPostponed();
  Die();
}

void FormWindow::ActAfterwards(const std::function<void()>& act) {
  postponed.push_back(act);
  RunPostponed();
}

void FormWindow::RunPostponed() {
  if (postponed.empty() || acting > 0 || dying) return;
  const bool clickUnderWay = QGuiApplication::mouseButtons() != Qt::NoButton;
  QTimer::singleShot(clickUnderWay ? mouseLook : 0, this, [this, clickUnderWay] {
    if (clickUnderWay || acting > 0) return RunPostponed();
    std::vector<std::function<void()>> due;
    due.swap(postponed);
    for (const auto& act : due) Act(act);
  });
}

// A key that no control took. True when the window itself must not see it.
bool FormWindow::KeyPressed(int key) {
  if (row.TakesKeys == Keys::ToForm) {
    Act([this] { form->UserKey(); });
    return false;
  }
  if (key != Qt::Key_Escape) return false;
  if (row.TakesKeys == Keys::EscapeEnds) {
    Act([this] { form->UserClose(); });
  } else {
    ClickEscape(row, *window);
  }
  return true;
}

// A box or a modal window that waits for its user comes first.
bool FormWindow::Dragged(QDropEvent& event) {
  const bool free = QApplication::activeModalWidget() == nullptr && !blocked();
  event.setAccepted(free && !DraggedFile(event).isEmpty());
  return true;
}

// Afterwards: a question must not keep the program waiting that the file comes from.
bool FormWindow::Dropped(QDropEvent& event) {
  const QString file = DraggedFile(event);
  event.setDropAction(Qt::CopyAction);
  Dragged(event);
  if (!event.isAccepted()) return true;
  ActAfterwards([this, path = std::filesystem::path(QFile::encodeName(file).toStdString())] {
    form->UserDrop(path);
  });
  return true;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != window.data() || dying) return false;
  switch (event->type()) {
    case QEvent::Close:
      event->ignore();
      Act([this] { form->UserClose(); });
      return true;
    case QEvent::WindowActivate:
      emit Activated();
      ActAfterwards([this] { form->UserReturn(); });
      return false;
    case QEvent::KeyPress:
      return KeyPressed(static_cast<QKeyEvent*>(event)->key());
    case QEvent::MouseButtonPress:
      Act([this] { form->UserClick(); });
      return false;
    case QEvent::DragEnter:
    case QEvent::DragMove:
      return row.TakesFiles && Dragged(*static_cast<QDropEvent*>(event));
    case QEvent::Drop:
      return row.TakesFiles && Dropped(*static_cast<QDropEvent*>(event));
    case QEvent::Resize:
      if (!sizing) NoteSize();
      return false;
    default:
      return false;
  }
}

}  // namespace quillmark
