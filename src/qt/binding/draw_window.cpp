#include "qt/binding/draw_window.h"

#include <QAction>
#include <QIcon>
#include <QLabel>
#include <QShortcut>
#include <QTabBar>
#include <QToolBar>
#include <QWidget>

#include "ui_frmHistory.h"
#include "ui_frmSplash.h"
#include "ui_frmViewer.h"

namespace quillmark {

void WidenByCharacters(QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const int characters = widget->property("widthInCharacters").toInt();
    if (characters > 0) {
      widget->setMinimumWidth(widget->fontMetrics().averageCharWidth() * characters);
    }
  }
}

namespace {

// A key that goes on by so many tabs.
void AddTabKey(QDialog& window, QKeySequence::StandardKey key, QTabBar& tabs, int step) {
  QObject::connect(new QShortcut(key, &window), &QShortcut::activated, &tabs, [&tabs, step] {
    tabs.setCurrentIndex((tabs.currentIndex() + step + tabs.count()) % tabs.count());
  });
}

}  // namespace

void AddTabKeys(QDialog& window, QTabBar& tabs) {
  AddTabKey(window, QKeySequence::NextChild, tabs, 1);
  AddTabKey(window, QKeySequence::PreviousChild, tabs, -1);
}

QWidget* DrawSplash(QWidget* parent) {
  auto* window = new QWidget(parent);
  Ui::frmSplash ui;
  ui.setupUi(window);
  window->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  const int size = window->fontMetrics().height() * 5;
  ui.picture->setPixmap(window->windowIcon().pixmap(size));
  return window;
}

QWidget* DrawHistory(QWidget* parent) {
  auto* window = new QDialog(parent);
  Ui::frmHistory ui;
  ui.setupUi(window);
  WidenByCharacters(*window);
  // What a copy can be asked for is found at the copy as well.
  ui.tblCopies->addActions(ui.bar->actions());
  ui.tblCopies->setContextMenuPolicy(Qt::ActionsContextMenu);
  ui.bar->setContextMenuPolicy(Qt::PreventContextMenu);
  for (QAction* action : ui.bar->actions()) {
    if (!action->isSeparator()) ui.bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
  }
  QObject::connect(new QShortcut(QKeySequence::Find, window), &QShortcut::activated, ui.txtSearch,
                   [line = ui.txtSearch] { line->setFocus(Qt::ShortcutFocusReason); });
  // What has changed needs the most room.
  const int width = ui.tblRadios->sizeHint().width();
  ui.tables->setSizes({width, 2 * width});
  ui.tables->setStretchFactor(0, 1);
  ui.tables->setStretchFactor(1, 2);
  return window;
}

QWidget* DrawViewer(QWidget* parent) {
  auto* window = new QDialog(parent);
  Ui::frmViewer ui;
  ui.setupUi(window);
  ui.findBar->Serve(*ui.txtViewer, *window);
  return window;
}

}  // namespace quillmark
