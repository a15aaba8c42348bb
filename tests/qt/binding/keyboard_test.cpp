// What can be reached by keyboard alone: the menus' mnemonics and keys, and the tab order.

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>
#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "qt/binding/main_window.h"

namespace quillmark {
namespace {

using testing::ElementsAre;

class MainWindowKeys : public testing::Test {
 protected:
  void WalkMenu(const QWidget& menu) {
    std::set<QString> mnemonics;
    for (const QAction* action : menu.actions()) {
      if (action->isSeparator()) continue;
      const QString key = QKeySequence::mnemonic(action->text()).toString();
      if (key.isEmpty() || !mnemonics.insert(key).second) {
        faults += action->text().toStdString() + " has no mnemonic of its own\n";
      }
      if (action->menu() != nullptr) WalkMenu(*action->menu());
    }
  }

  std::unique_ptr<QWidget> window{DrawMainWindow(nullptr)};
  std::string faults;
};

TEST_F(MainWindowKeys, EachMenuEntryHasItsOwn) {
  WalkMenu(*static_cast<QMainWindow&>(*window).menuBar());
  EXPECT_EQ(faults, "");
  std::map<QString, int> uses;
  for (const QAction* action : window->findChildren<QAction*>()) {
    if (!action->shortcut().isEmpty()) ++uses[action->shortcut().toString()];
  }
  for (const auto& [key, count] : uses) EXPECT_EQ(count, 1) << key.toStdString();
}

// What is hidden without being in the other view brings no other view.
TEST_F(MainWindowKeys, OnlyAButtonOfTheOtherViewBringsThatView) {
  const struct {
    const char* Button;
    QKeySequence Key;
    int Views;
  } cases[] = {{"LastRun", Qt::Key_F6, 0}, {"cmdPrint", QKeySequence::Print, 1}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Button);
    int views = 0;
    int clicks = 0;
    const auto count = [](int& times) { return [&times] { ++times; }; };
    auto* view = window->findChild<QAbstractButton*>(QStringLiteral("ButtonAdv"));
    auto* button = window->findChild<QAbstractButton*>(QLatin1String(each.Button));
    QObject guard;
    QObject::connect(view, &QAbstractButton::clicked, &guard, count(views));
    QObject::connect(button, &QAbstractButton::clicked, &guard, count(clicks));
    const auto actions = window->findChildren<QAction*>();
    button->parentWidget()->hide();
    (*std::ranges::find(actions, each.Key, &QAction::shortcut))->trigger();
    EXPECT_EQ(std::pair(views, clicks), std::pair(each.Views, 1));
  }
}

TEST_F(MainWindowKeys, TheTabKeyLeadsFromTheToolbarIntoTheTerminal) {
  std::vector<std::string> order;
  const QWidget* at = window.get();
  do {
    at = at->nextInFocusChain();
    const bool reached = (at->focusPolicy() & Qt::TabFocus) != 0;
    const auto* button = qobject_cast<const QToolButton*>(at);
    if (reached && button != nullptr && button->defaultAction() != nullptr) {
      order.push_back(button->defaultAction()->objectName().toStdString());
    } else if (reached) {
      order.push_back(at->objectName().toStdString());
    }
  } while (order.empty() || order.back() != "txtTerm");
  order.erase(order.begin(), order.end() - 10);
  EXPECT_THAT(order, ElementsAre("tbr_OpenLogFile", "tbr_CloseLogFile", "tbr_Connect",
                                 "tbr_Disconnect", "tbr_Properties", "tbr_TransmitTextFile",
                                 "tbr_Login", "tbr_Logout", "tbr_Terminal", "txtTerm"));
}

}  // namespace
}  // namespace quillmark
