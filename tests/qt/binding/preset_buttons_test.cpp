#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QProgressBar>
#include <QShortcut>
#include <memory>
#include <string>

#include "pictures/report.h"
#include "qt/machine.h"
#include "qt/widgets/eliding_button.h"
#include "start/console.h"

namespace quillmark {
namespace {

// The main window alone, without a radio.
class PresetButtons : public testing::Test {
 protected:
  PresetButtons() {
    main.cmdPre[0].OnRightClick = [this] {
      ++rightClicks;
      main.PopupMenu(main.mnuPreset, main.cmdPre[0]);
    };
    main.frQuick.Enabled = true;
    main.cmdPre[0].Enabled = true;
    machine.Shown.Show(main.shared_from_this());
    window = machine.Shown.WindowOf(main);
    machine.Events.Pump();
    button = window->findChild<ElidingButton*>("cmdPre_0");
    menu = window->findChild<QMenu*>("mnuPreset");
  }
  ~PresetButtons() override { machine.Shown.CloseAll(); }

  void AskForMenu(QContextMenuEvent::Reason reason) const {
    const QPoint middle = button->rect().center();
    QContextMenuEvent event(reason, middle, button->mapToGlobal(middle));
    QCoreApplication::sendEvent(button, &event);
  }

  Machine machine;
  ReportDialogs boxes;
  Platform platform = machine.AsPlatform(boxes);
  Console console{platform};
  frmOrvalent& main = console.Main();
  QWidget* window = nullptr;
  ElidingButton* button = nullptr;
  QMenu* menu = nullptr;
  int rightClicks = 0;
};

TEST_F(PresetButtons, OpenTheirMenuByMouseAndKeyboardWhileTheyCanBeUsed) {
  AskForMenu(QContextMenuEvent::Mouse);
  EXPECT_EQ(rightClicks, 1);
  ASSERT_TRUE(menu->isVisible());
  EXPECT_EQ(menu->pos().y(), button->mapToGlobal(button->rect().bottomLeft()).y());
  menu->hide();
  AskForMenu(QContextMenuEvent::Keyboard);
  auto* key = button->findChild<QShortcut*>();
  ASSERT_NE(key, nullptr);
  EXPECT_EQ(key->key(), QKeySequence("Shift+F10"));
  emit key->activated();
  EXPECT_EQ(rightClicks, 3);
  menu->hide();
  main.cmdPre[0].Enabled = false;
  AskForMenu(QContextMenuEvent::Mouse);
  emit key->activated();
  EXPECT_EQ(rightClicks, 3);
  EXPECT_FALSE(menu->isVisible());
}

TEST_F(PresetButtons, KeepTheirSizeWhateverTheirCaption) {
  const QSize before = button->size();
  const QSize windowBefore = window->minimumSizeHint();
  main.cmdPre[0].Text = "R&D & more";
  EXPECT_EQ(button->Shown().toStdString(), "R&&D && more");
  const std::string endless(500, 'W');
  main.cmdPre[0].Text = endless;
  main.cmdPre[0].FontSize = 9;
  machine.Events.Pump();
  EXPECT_EQ(button->size(), before);
  EXPECT_EQ(window->minimumSizeHint(), windowBefore);
  EXPECT_LT(button->Shown().size(), 40);
  EXPECT_TRUE(button->Shown().endsWith(QChar(0x2026)));
  EXPECT_EQ(button->accessibleName().toStdString(), endless);
}

TEST_F(PresetButtons, ARunShowsHowFarItIsWithoutMovingTheStatusBar) {
  QWidget* panel = window->findChild<QWidget*>("pnl_ConnectTime");
  const QRect before = panel->geometry();
  main.barRun.Max = 34;
  main.barRun.Value = 12;
  main.barRun.Visible = true;
  machine.Events.Pump();
  EXPECT_EQ(window->findChild<QProgressBar*>("barRun")->text().toStdString(), "12 of 34");
  EXPECT_EQ(panel->geometry(), before);
}

}  // namespace
}  // namespace quillmark
