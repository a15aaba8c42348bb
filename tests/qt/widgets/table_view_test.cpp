#include "qt/widgets/table_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "controls/form.h"

namespace quillmark {
namespace {

using ::testing::ElementsAre;
using Numbers = std::vector<std::size_t>;

struct TableViewTest : testing::Test {
  TableViewTest() {
    QObject::connect(&view, &TableView::Chose, [this](const Numbers& rows) {
      chosen = rows;
      form->table.UserSelect(rows);
    });
    view.Follow(form->table);
  }

  void Press(int key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, with);
    QCoreApplication::sendEvent(&view, &event);
  }
  static QString Copied() { return QGuiApplication::clipboard()->text(); }
  QVariant At(int row, int column, int role) const {
    return view.model()->index(row, column).data(role);
  }

  struct Window : Form {
    Window() : Form("frmTable") {}
    Table table{*this, this, "tbl", {"Setting", "a\tb", "Compared"}, 2};
  };
  std::shared_ptr<Window> form = std::make_shared<Window>();
  TableView view;
  Numbers chosen;
};

TEST_F(TableViewTest, SelectsByKeysAndCopiesAndSpeaks) {
  form->table.Show({{.Cells = {"Power", "<b>30</b>"}, .Mark = Sign::Differs, .Tip = "<i>whole"},
                    {.Cells = {"Mode", "MODE\r\nM"}, .Mark = Sign::Same},
                    {.Cells = {"Owner"}}},
                   {1, 7});
  view.Follow(form->table);
  EXPECT_EQ(chosen, Numbers());
  EXPECT_EQ(view.currentIndex().row(), 1);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "Mode\tMODE M\t=\n");
  Press(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_THAT(chosen, ElementsAre(0, 1));
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_THAT(chosen, ElementsAre(0, 1, 2));
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(),
            QString("Setting\ta b\tCompared\nPower\t<b>30</b>\t≠\nMode\tMODE M\t=\nOwner\t\t\n"));
  EXPECT_EQ(At(0, 2, Qt::AccessibleTextRole), "differs");
  EXPECT_EQ(At(1, 2, Qt::AccessibleTextRole), "same");
  EXPECT_TRUE(At(0, 0, Qt::ToolTipRole).toString().contains("&lt;i&gt;whole"));
  form->table.Show({{.Cells = {"Mode"}}}, {0});
  view.Follow(form->table);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "Setting\ta b\tCompared\nMode\t\t\n");
}

TEST_F(TableViewTest, EnterOpensWhereSomebodyListensAndIsTheWindowsElse) {
  form->table.Show({{.Cells = {"Mode"}}}, {0});
  view.Follow(form->table);
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QCoreApplication::sendEvent(&view, &enter);
  EXPECT_FALSE(enter.isAccepted());
  int opened = 0;
  QObject::connect(&view, &TableView::Opened, [&] { ++opened; });
  Press(Qt::Key_Return);
  EXPECT_EQ(opened, 1);
}

}  // namespace
}  // namespace quillmark
