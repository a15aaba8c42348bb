#include "qt/binding/find_keys.h"

#include <QEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace quillmark {

namespace {

void AddKey(Qt::Key key, QWidget& bar, QAbstractButton& button) {
  auto* shortcut = new QShortcut(key, &bar);
  shortcut->setContext(Qt::WidgetWithChildrenShortcut);
  QObject::connect(shortcut, &QShortcut::activated, &button, &QAbstractButton::click);
}

}  // namespace

FindKeys::FindKeys(const Ui::frmOrvalent& ui) : QObject(ui.findStrip) {
  ui.findStrip->installEventFilter(this);
  AddKey(Qt::Key_Escape, *ui.findStrip, *ui.cmdFindClose);
  AddKey(Qt::Key_Up, *ui.findStrip, *ui.cmdFindPrevious);
  AddKey(Qt::Key_Down, *ui.findStrip, *ui.cmdFindNext);
  connect(ui.txtFind, &QLineEdit::returnPressed, ui.cmdFindGo, &QAbstractButton::click);
  // Hiding the bar moves the focus: it is put back afterwards.
  connect(
      ui.cmdFindClose, &QAbstractButton::clicked, this,
      [this] {
        if (!before.isNull()) before->setFocus();
      },
      Qt::QueuedConnection);
}

bool FindKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShowToParent) {
    before = static_cast<QWidget*>(watched)->window()->focusWidget();
  }
  return false;
}

}  // namespace quillmark
