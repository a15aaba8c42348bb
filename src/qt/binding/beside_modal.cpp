#include "qt/binding/beside_modal.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMetaObject>
#include <QWidget>

namespace quillmark {

BesideModal::BesideModal(QWidget& shown) {
  shown.winId();
  window = shown.windowHandle();
  usualOwner = window->transientParent();
  window->installEventFilter(this);
}

void BesideModal::Follow() {
  QWindow* modal = QGuiApplication::modalWindow();
  QWindow* owner = modal != nullptr ? modal : usualOwner.data();
  if (window.isNull() || owner == window || window->transientParent() == owner) return;
  // Two windows that own each other would never end.
  if (owner != nullptr && window->isAncestorOf(owner, QWindow::IncludeTransients)) return;
  if (modal != nullptr) {
    connect(modal, &QWindow::visibleChanged, this, &BesideModal::FollowSoon, Qt::UniqueConnection);
  }
  window->setTransientParent(owner);
}

// Qt is not done with the windows yet when it tells that they are blocked or gone.
void BesideModal::FollowSoon() {
  QMetaObject::invokeMethod(this, &BesideModal::Follow, Qt::QueuedConnection);
}

bool BesideModal::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) FollowSoon();
  return false;
}

}  // namespace quillmark
