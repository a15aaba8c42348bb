// How menus and the toolbar are joined to their actions.

#include <QAction>
#include <QMenu>

#include "qt/binding/binder.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

// The text of a menu's entry without the marks of its mnemonic.
QString WithoutKeys(QString text) { return text.remove(QLatin1Char('&')); }

}  // namespace

void Binder::ShowAction(const Clickable& control, QAction& action) {
  action.setEnabled(control.Enabled() && !Locked(control));
  action.setVisible(control.Visible());
  action.setToolTip(TipOf(control));
}

void Binder::JoinMenuItem(MenuItem& control, QAction& action) {
  connect(&action, &QAction::triggered, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
  // The form may give the same text a mnemonic.
  const QString drawn = action.text();
  Follow(control, [this, &control, &action, drawn] {
    ShowAction(control, action);
    const QString text = ToQt(control.Text());
    action.setText(WithoutKeys(drawn) == text ? drawn : text);
    if (action.isCheckable()) action.setChecked(control.Checked());
  });
}

void Binder::JoinMenu(Menu& control, QMenu& menu) {
  menu.setToolTipsVisible(true);
  Follow(control, [this, &control, &menu] {
    ShowAction(control, *menu.menuAction());
    menu.setTitle(ToQt(control.Text()));
    menu.setAccessibleName(WithoutMnemonics(control.Text()));
  });
}

void Binder::JoinToolButton(ToolButton& control, QAction& action) {
  connect(&action, &QAction::triggered, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
  Follow(control, [this, &control, &action] {
    ShowAction(control, action);
    action.setText(WithoutMnemonics(control.Text()));
    action.setIconText(OnTwoLines(WithoutMnemonics(control.Text())));
  });
}

}  // namespace quillmark
