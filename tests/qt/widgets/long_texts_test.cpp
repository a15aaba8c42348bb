// Figures and names that are as long as they can be.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <memory>

#include "firmware/frmProgram.h"
#include "pictures/report.h"
#include "qt/dialogs/message_window.h"
#include "qt/machine.h"
#include "qt/text/latin1.h"
#include "qt/widgets/elided_caption.h"
#include "qt/widgets/notice_line.h"
#include "qt/widgets/zone_view.h"
#include "qt/window_forms.h"

namespace quillmark {
namespace {

struct LongTexts : testing::Test {
  QWidget* Show(const std::shared_ptr<Form>& form) {
    platform.Windows.Show(form);
    return machine.Shown.WindowOf(*form);
  }
  ~LongTexts() override { machine.Shown.CloseAll(); }

  Machine machine;
  ReportDialogs boxes;
  Platform platform = machine.AsPlatform(boxes);
  Console console{platform};
};

// How many runs of ink the lowest line of the widget has, apart by at least `gap` columns.
int InkedBlocks(const QImage& drawn, QRect where, int gap) {
  const QRgb ground = drawn.pixel(where.topLeft());
  int blocks = 0;
  int blank = gap;
  for (int x = where.left(); x <= where.right(); ++x) {
    bool inked = false;
    for (int y = where.top(); y <= where.bottom(); ++y) inked |= drawn.pixel(x, y) != ground;
    if (inked && blank >= gap) ++blocks;
    blank = inked ? 0 : blank + 1;
  }
  return blocks;
}

TEST_F(LongTexts, ZoneFiguresOfEightDigitsStandApart) {
  const auto form = std::make_shared<frmZoneData>(platform, console.Main(), console.Talk());
  QWidget* window = Show(form);
  auto* zone = window->findChild<ZoneView*>("zoneData_0");
  for (Control* control : form->Controls()) {
    auto* label = dynamic_cast<Label*>(control);
    if (label == nullptr) continue;
    if (label->Name().find("Count_") != std::string::npos) label->Text = "88888888";
    if (label->Name().starts_with("labelZone_")) label->Text = "100000000";
  }
  machine.Events.Pump();
  for (const bool small : {false, true}) {
    if (small) zone->window()->resize(300, 300);
    machine.Events.Pump();
    const int line = zone->fontMetrics().height();
    const QImage drawn = zone->grab().toImage();
    const QRect figures(4, zone->height() - line * 5 / 4, zone->width() - 8, line);
    EXPECT_EQ(InkedBlocks(drawn, figures, zone->fontMetrics().averageCharWidth() / 2), 3);
  }
}

TEST_F(LongTexts, FileNamesFitTheProgressWindowAndShowTheirAmpersands) {
  const auto form = std::make_shared<frmProgram>(platform, console.Shared());
  QWidget* window = Show(form);
  const QSize usual = window->size();
  auto* shown = window->findChild<ElidedCaption*>("Label1");
  form->Label1.Text = "Transmitting S28 File - R&D.s28";
  EXPECT_EQ(shown->Shown(), "Transmitting S28 File - R&D.s28");
  const std::string name = "R&D " + std::string(246, 'w') + ".s28";
  form->Label1.Text = "Transmitting S28 File - " + name;
  machine.Events.Pump();
  EXPECT_EQ(window->size(), usual);
  EXPECT_LE(window->minimumSizeHint().width(), usual.width());
  EXPECT_TRUE(shown->Shown().startsWith("Transmitting S28"));
  EXPECT_TRUE(shown->Shown().endsWith("w.s28"));
  EXPECT_LT(shown->Shown().size(), 100);
}

TEST_F(LongTexts, AFilesPathGivesWayToWhatARunHasDone) {
  QWidget* window = Show(console.Main().shared_from_this());
  window->resize(640, 480);
  frmOrvalent& main = console.Main();
  const std::string folder = "/srv/radios of the north/" + std::string(90, 'x') + "/ridge/";
  const std::string saved = "Saved 40 settings to " + folder + "pump 2.txt.";
  main.LastRun.Tell("39 of 40 settings taken; refused: BAUD 1234");
  main.FileDone.Tell(saved);
  machine.Events.Pump();
  const auto line = [&](const char* name) { return window->findChild<NoticeLine*>(name); };
  EXPECT_EQ(line("LastRun")->Shown(), "39 of 40 settings taken; refused: BAUD 1234");
  EXPECT_TRUE(line("FileDone")->Shown().startsWith("Saved 40 settings"));
  main.LastRun.Drop();
  machine.Events.Pump();
  EXPECT_TRUE(line("FileDone")->Shown().startsWith("Saved 40 settings to /srv/radios"));
  EXPECT_TRUE(line("FileDone")->Shown().endsWith("ridge/pump 2.txt."));
  EXPECT_EQ(line("FileDone")->accessibleName(), ToQt(saved));
  EXPECT_TRUE(line("FileDone")->toolTip().contains(ToQt(folder)));
  EXPECT_EQ(window->width(), 640);
}

// 640 by 480 pixels, and the same at 200 %.
TEST_F(LongTexts, ABoxStaysOnTheScreenAndScrollsAboveItsButtons) {
  std::string details;
  for (int i = 1; i <= 40; ++i)
    details += "PWR 30 becomes PWR 25, line " + std::to_string(i) + "\r\n";
  const std::string path = "/" + std::string(150, 'a') + "/" + std::string(150, 'b');
  for (const QSize room : {QSize(630, 450), QSize(560, 220)}) {
    MessageWindow box({.Text = path + " not found!", .Title = "File", .Details = details}, nullptr);
    box.StayWithin(room);
    box.show();
    machine.Events.Pump();
    EXPECT_EQ(box.size().boundedTo(room), box.size());
    const auto* button = box.findChild<QPushButton*>("Ok");
    EXPECT_FALSE(button->visibleRegion().isEmpty());
    const auto* area = box.findChild<QScrollArea*>();
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
    auto* text = box.findChild<QLabel*>("messageDetails");
    for (int i = 0; i < 40; ++i) {
      QKeyEvent page(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
      QApplication::sendEvent(&box, &page);
    }
    const QRect seen = text->visibleRegion().boundingRect();
    EXPECT_EQ(seen.bottom(), text->rect().bottom())
        << area->verticalScrollBar()->value() << " of " << area->verticalScrollBar()->maximum();
    auto* top = box.findChild<QLabel*>("messageText");
    top->setSelection(0, static_cast<int>(top->text().size()));
    QGuiApplication::clipboard()->setText(top->selectedText());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), ToQt(path + " not found!"));
  }
}

}  // namespace
}  // namespace quillmark
