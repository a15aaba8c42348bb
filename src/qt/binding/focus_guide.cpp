#include "qt/binding/focus_guide.h"

#include <QApplication>
#include <QToolBar>
#include <initializer_list>
#include <utility>

#include "qt/widgets/notice_line.h"
#include "ui_frmOrvalent.h"

namespace quillmark {

namespace {

bool IsOutOfUse(const QWidget* widget) {
  return widget == nullptr || !widget->isEnabled() || !widget->isVisible();
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
  // Behind a box the focus moves without a word: what counts is where it was seen last.
  connect(qApp, &QApplication::focusChanged, this, [this, window, ui](QWidget*, QWidget* now) {
    if (now == nullptr || now->window() != window) return;
    const QPointer<QWidget> before = std::exchange(last, now);
    if (now == before || !IsForItsUserOnly(*now) || !IsOutOfUse(before)) return;
    // A window without a focus would give it to its first widget when a box over it closes.
    ui.centralArea->setFocus(Qt::OtherFocusReason);
    if (before.isNull() || !before->isVisible()) FocusTheView(ui);
  });
  connect(
      ui.viewStack, &QStackedWidget::currentChanged, this,
      [window, ui] {
        if (window->focusWidget() == ui.centralArea) FocusTheView(ui);
      },
      Qt::QueuedConnection);
}

}  // namespace quillmark
