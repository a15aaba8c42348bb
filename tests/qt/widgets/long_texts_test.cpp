// Figures and names that are as long as they can be.

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <memory>

#include "firmware/frmProgram.h"
#include "pictures/report.h"
#include "qt/machine.h"
#include "qt/text/latin1.h"
#include "qt/widgets/elided_caption.h"
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

}  // namespace
}  // namespace quillmark
