#include "qt/binding/restore_window.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLayout>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolBar>
#include <memory>

#include "qt/widgets/row_comparison.h"
#include "restore/restore_rows.h"

namespace quillmark {
namespace {

// The row of the radio mode, on the page that is in front.
struct RestoreWindow : testing::Test {
  RestoreWindow() : window(DrawRestoreWindow(nullptr)) {
    Find<QStackedWidget>("pages").setCurrentIndex(1);
    window->show();
    mark = window->findChild<QWidget*>("ModeCheck")->parentWidget()->findChild<QLabel*>();
  }

  template <class Widget>
  Widget& Find(const char* name) const {
    return *window->findChild<Widget*>(QLatin1String(name));
  }
  ValueLine& Line(const char* name) const { return Find<ValueLine>(name); }
  // Such a button can be used as soon as a file is open.
  void OpenFile(bool open) const { Find<QPushButton>("CheckAllButton").setEnabled(open); }

  std::unique_ptr<QWidget> window;
  QLabel* mark = nullptr;
};

TEST_F(RestoreWindow, ARowShowsAtAGlanceHowItsValuesStandToEachOther) {
  struct Case {
    bool FileOpen;
    const char *InRadio, *InFile, *Mark;
    bool Bold, RadioQuiet, FileQuiet;
    const char* Words;
  };
  const Case cases[] = {
      {false, "MODE M", "n/a", "", false, false, true, "no file is open"},
      {true, "MODE M", "MODE R", "≠", true, false, false, "differs"},
      {true, "MODE  M", "MODE: M", "=", false, false, false, "same"},
      {true, "MODE M", "n/a", "", false, true, true, "not in the file"},
      {true, "MODE NOT AVAILABLE", "MODE M", "", false, true, true, "not in the radio"},
      {true, "n/a", "n/a", "", false, true, true, "neither in the radio nor in the file"},
      {false, "n/a", "n/a", "", false, true, true, "no file is open"},
  };
  ValueLine& radio = Line("Mode");
  ValueLine& file = Line("NewMode");
  for (const Case& each : cases) {
    SCOPED_TRACE(std::string(each.InRadio) + " and " + each.InFile);
    radio.setText(each.InRadio);
    file.setText(each.InFile);
    OpenFile(each.FileOpen);
    EXPECT_EQ(mark->text(), QString(each.Mark));
    for (const QWidget* part : {static_cast<QWidget*>(mark), static_cast<QWidget*>(&radio),
                                static_cast<QWidget*>(&file)}) {
      EXPECT_EQ(part->font().bold(), each.Bold);
    }
    EXPECT_EQ(std::pair(radio.Quiet(), file.Quiet()), std::pair(each.RadioQuiet, each.FileQuiet));
    EXPECT_EQ(Find<QCheckBox>("ModeCheck").accessibleDescription(),
              QString("In the radio: %1. In the file: %2. %3.")
                  .arg(each.InRadio, each.InFile, each.Words));
  }
}

TEST_F(RestoreWindow, AValueThatTheRadioWillNotTakeIsMarked) {
  OpenFile(true);
  Line("Mode").setText("MODE M");
  Line("NewMode").setText("MODE Q");
  Line("NewMode").SetProblem("MODE Q: radios take M, R or X");
  EXPECT_EQ(mark->text(), QString("≠!"));
  EXPECT_EQ(mark->accessibleName(), QString("differs. MODE Q: radios take M, R or X"));
  Line("NewMode").SetProblem({});
  EXPECT_EQ(mark->text(), QString("≠"));
}

TEST_F(RestoreWindow, ItsActsHaveKeys) {
  std::string done;
  const auto note = [&done](const QObject& of) { done = of.objectName().toStdString(); };
  for (auto* button : window->findChildren<QAbstractButton*>()) {
    QObject::connect(button, &QAbstractButton::clicked, [=] { note(*button); });
    button->setEnabled(true);
  }
  for (auto* action : window->findChildren<QAction*>()) {
    QObject::connect(action, &QAction::triggered, [=] { note(*action); });
    action->setEnabled(true);
  }
  const struct {
    QKeyCombination Keys;
    const char* Act;
  } cases[] = {
      {Qt::CTRL | Qt::Key_O, "tbr_OpenConfig"},
      {Qt::CTRL | Qt::Key_S, "tbr_SaveConfig"},
      {Qt::Key_F5, "tbr_Refresh"},
      {Qt::CTRL | Qt::Key_Return, "tbr_ProgramRadio"},
      {Qt::CTRL | Qt::Key_Enter, "tbr_ProgramRadio"},
      {Qt::CTRL | Qt::Key_D, "TickDifferingButton"},
      {Qt::CTRL | Qt::SHIFT | Qt::Key_A, "CheckAllButton"},
      {Qt::CTRL | Qt::SHIFT | Qt::Key_N, "UnCheckAllButton"},
  };
  for (const auto& each : cases) {
    done.clear();
    for (QShortcut* shortcut : window->findChildren<QShortcut*>()) {
      if (shortcut->key() == QKeySequence(each.Keys)) emit shortcut->activated();
    }
    EXPECT_EQ(done, each.Act);
  }
}

TEST_F(RestoreWindow, AHiddenRowTakesItsMarkAlongAndLeavesNoGap) {
  const int own = Line("Mode").y();
  for (const char* name : {"ModeCheck", "Mode", "NewMode"}) Find<QWidget>(name).hide();
  EXPECT_TRUE(mark->isHidden());
  window->layout()->activate();
  Find<QWidget>("RadSet_1").layout()->activate();
  EXPECT_EQ(Line("PowerLevel").y(), own);
}

TEST_F(RestoreWindow, ColumnsStandInLineBelowTheirHeadingsWhateverTheWidth) {
  const auto left = [this](const char* name) {
    return Find<QWidget>(name).mapTo(window.get(), QPoint()).x();
  };
  Line("Mode").setText(QString(200, 'M'));
  for (const int width : {window->sizeHint().width(), 1400}) {
    window->resize(width, window->height());
    for (int page = 0; page < 7; ++page) {
      Find<QStackedWidget>("pages").setCurrentIndex(page);
      for (const RestoreRow& row : RestoreRows()) {
        if (static_cast<int>(row.Page) != page) continue;
        EXPECT_EQ(left(row.Current), left("Label2")) << row.Caption;
        EXPECT_EQ(left(row.New.c_str()), left("FileSettingsLabel")) << row.Caption;
      }
    }
  }
  EXPECT_GT(Line("Mode").width(), Line("Mode").sizeHint().width());
  EXPECT_TRUE(Line("Mode").Shown().endsWith(QChar(0x2026)));
}

TEST_F(RestoreWindow, TheTabKeyLeadsFromTheToolbarOverTheTabsIntoTheRowsAndToTheButtons) {
  auto& bar = Find<QToolBar>("Toolbar1");
  const QWidget* refresh = bar.widgetForAction(bar.actions().constLast());
  const auto stepsTo = [refresh](const char* name) {
    int steps = 0;
    for (const QWidget* at = refresh; at->objectName() != QLatin1String(name); ++steps) {
      at = at->nextInFocusChain();
    }
    return steps;
  };
  EXPECT_LT(stepsTo("TabStrip"), stepsTo("ModeCheck"));
  EXPECT_LT(stepsTo("ModeCheck"), stepsTo("CheckAllButton"));
}

}  // namespace
}  // namespace quillmark
