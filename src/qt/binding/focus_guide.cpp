#include "qt/binding/focus_guide.h"

#include <QApplication>
#include <QToolBar>
#include <initializer_list>

#include "qt/widgets/notice_line.h"
#include "ui_frmOrvalent.h"

namespace quillmark {

namespace {

bool IsPushedOn(const QWidget* old, const QWidget* now) {
  return old != nullptr && now != nullptr && old->window() == now->window() &&
         !(old->isEnabled() && old->isVisible());
}

bool IsForItsUserOnly(const QWidget& widget) {
  return qobject_cast<const NoticeLine*>(&widget) != nullptr ||
         qobject_cast<const QToolBar*>(widget.parentWidget()) != nullptr;
}

// Of the view that is shown.
void FocusTheView(const Ui::frmOrvalent& ui) {
  for (QWidget* first : std::initializer_list<QWidget*>{ui.SettingsTab, ui.cmdReadRadio}) {
    if (first->isVisible() && first->isEnabled()) return first->setFocus(Qt::OtherFocusReason);
  }
}

}  // namespace

FocusGuide::FocusGuide(const Ui::frmOrvalent& ui) : QObject(ui.viewStack) {
  const QWidget* window = ui.viewStack->window();
  connect(qApp, &QApplication::focusChanged, this, [window, ui](const QWidget* old, QWidget* now) {
    if (!IsPushedOn(old, now) || now->window() != window || !IsForItsUserOnly(*now)) return;
    now->clearFocus();
    if (!old->isVisible()) FocusTheView(ui);
  });
  connect(
      ui.viewStack, &QStackedWidget::currentChanged, this,
      [window, ui] {
        if (window->focusWidget() == nullptr) FocusTheView(ui);
      },
      Qt::QueuedConnection);
}

}  // namespace quillmark
