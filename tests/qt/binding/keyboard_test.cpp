// What can be reached by keyboard alone: the menus' mnemonics and keys, and the tab order.

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "qt/base/qt_event_loop.h"
#include "qt/binding/focus_keeper.h"
#include "qt/binding/main_window.h"
#include "qt/widgets/notice_line.h"

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

// The entries of the toolbar's buttons work while the toolbar has no room for them.
TEST_F(MainWindowKeys, AnEntryLeavesTheViewAloneUnlessItsButtonStandsInTheOther) {
  int switched = 0;
  int clicked = 0;
  const auto trigger = [&](const char* text, QAbstractButton& button, bool hidden) {
    button.setHidden(hidden);
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&clicked] { ++clicked; });
    for (QAction* action : window->findChildren<QAction*>()) {
      if (action->text() == QLatin1String(text)) action->trigger();
    }
  };
  QObject::connect(window->findChild<QAbstractButton*>("ButtonAdv"), &QAbstractButton::clicked,
                   [&switched] { ++switched; });
  const auto* bar = window->findChild<QToolBar*>();
  trigger("&What the Radio Took", *window->findChild<QAbstractButton*>("LastRun"), true);
  EXPECT_EQ(clicked, 0);
  for (const auto& [text, action] :
       {std::pair("&Disconnect", "tbr_Disconnect"), std::pair("&Terminal\tF8", "tbr_Terminal")}) {
    QAction* of = window->findChild<QAction*>(QLatin1String(action));
    of->setEnabled(true);
    trigger(text, *qobject_cast<QAbstractButton*>(bar->widgetForAction(of)), true);
  }
  EXPECT_EQ(clicked, 2);
  EXPECT_EQ(switched, 0);
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

// The next key, meant for what was there, would end a run.
TEST_F(MainWindowKeys, NeitherTheToolbarNorANoticeGetsTheFocusFromAnotherWidget) {
  QtEventLoop events;
  auto& notice = *window->findChild<NoticeLine*>(QStringLiteral("LastRun"));
  auto& tasks = *window->findChild<QWidget*>(QStringLiteral("frQuick"));
  window->findChild<QStackedWidget*>(QStringLiteral("viewStack"))->setCurrentWidget(&tasks);
  notice.SetClickable(true);
  for (const char* name : {"SettingsTab", "findStrip", "InfoFrame"}) {
    window->findChild<QWidget*>(QLatin1String(name))->hide();
  }
  const auto activate = [&](QWidget& widget) {
    widget.show();
    widget.activateWindow();
    ASSERT_TRUE(WaitUntil(events, Seconds(5), [&] { return widget.isActiveWindow(); }));
  };
  activate(*window);
  const auto focus = [&] {
    const QWidget* has = window->focusWidget();
    return has == nullptr ? "" : has->objectName().toStdString();
  };
  notice.setFocus();
  notice.hide();
  EXPECT_EQ(focus(), "cmdReadRadio");
  notice.show();
  window->findChild<QWidget*>(QStringLiteral("cmdReadRadio"))->setFocus();
  tasks.setEnabled(false);
  QWidget box;
  activate(box);
  box.close();
  activate(*window);
  EXPECT_EQ(focus(), "centralArea");
}

// What Qt does to the focus is not what the user has done.
TEST(FocusKeeper, BringsTheFocusBackToWhatWasOffForAWhile) {
  QtEventLoop events;
  QWidget window;
  QPushButton first(&window);
  QPushButton second(&window);
  QPushButton third(&window);
  new FocusKeeper(window);
  const auto activate = [&](QWidget& widget) {
    widget.show();
    widget.activateWindow();
    ASSERT_TRUE(WaitUntil(events, Seconds(5), [&] { return widget.isActiveWindow(); }));
  };
  activate(window);
  const struct {
    bool OtherWindow;
    bool Moved;
  } cases[] = {{false, false}, {false, true}, {true, false}};
  for (const auto& c : cases) {
    first.setFocus();
    QWidget other;
    if (c.OtherWindow) activate(other);
    first.setEnabled(false);
    second.setEnabled(false);
    EXPECT_EQ(window.focusWidget(), &third);
    second.setEnabled(true);
    if (c.Moved) second.setFocus();
    first.setEnabled(true);
    EXPECT_EQ(window.focusWidget(), c.Moved ? &second : &first);
    other.close();
    activate(window);
  }
}

}  // namespace
}  // namespace quillmark
