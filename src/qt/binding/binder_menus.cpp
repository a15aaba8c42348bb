// How menus and the toolbar are joined to their actions.

#include <QAction>
#include <QMenu>

#include "qt/binding/binder.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

// The text of a menu's entry without the marks of its mnemonic.
QString WithoutKeys(QString text) { return text.remove(QLatin1Char('&')); }

// The form may give the same text a mnemonic.
QString Mnemonic(const QString& drawn, const QString& text) {
  return WithoutKeys(drawn) == text ? drawn : text;
}

}  // namespace

void Binder::ShowAction(const Clickable& control, QAction& action) {
  action.setEnabled(control.Enabled() && !Locked(control));
  action.setVisible(control.Visible());
  action.setToolTip(TipOf(control));
}

void Binder::JoinMenuItem(MenuItem& control, QAction& action) {
  connect(&action, &QAction::triggered, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
  const QString drawn = action.text();
  Follow(control, [this, &control, &action, drawn] {
    ShowAction(control, action);
    action.setText(Mnemonic(drawn, ToQt(control.Text())));
    if (action.isCheckable()) action.setChecked(control.Checked());
  });
}

void Binder::JoinMenu(Menu& control, QMenu& menu) {
  menu.setToolTipsVisible(true);
  const QString drawn = menu.title();
  Follow(control, [this, &control, &menu, drawn] {
    ShowAction(control, *menu.menuAction());
    menu.setTitle(Mnemonic(drawn, ToQt(control.Text())));
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
