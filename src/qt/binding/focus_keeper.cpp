#include "qt/binding/focus_keeper.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace quillmark {

FocusKeeper::FocusKeeper(QWidget& kept) : QObject(&kept), window(kept) {
  connect(qApp, &QApplication::focusChanged, this, &FocusKeeper::FocusMoved);
}

void FocusKeeper::Watch(QWidget* next) {
  if (!chosen.isNull()) chosen->removeEventFilter(this);
  chosen = next;
  lost = false;
  chosen->installEventFilter(this);
}

void FocusKeeper::FocusMoved(const QWidget* old, QWidget* now) {
  if (now == nullptr || now->window() != &window || now == chosen) return;
  // It stands in for what is off, or another one has it already.
  if (now->focusPolicy() == Qt::NoFocus || now != window.focusWidget()) return;
  // From outside the window has got its own one back, from a widget that is off or out of sight Qt
  // has moved it on.
  const bool fromOutside = old == nullptr || old->window() != &window;
  if (chosen.isNull() || (!fromOutside && old->isEnabled() && old->isVisible())) Watch(now);
}

// In a window that is not the active one the focus moves without a word. The widget tells of it.
bool FocusKeeper::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::EnabledChange) return false;
  if (!chosen->isEnabled()) {
    lost = true;
  } else if (lost) {
    lost = false;
    chosen->setFocus(Qt::OtherFocusReason);
  }
  return false;
}

}  // namespace quillmark
