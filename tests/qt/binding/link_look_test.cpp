#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QProgressBar>
#include <QToolButton>
#include <memory>

#include "link/frmProperties.h"
#include "pictures/report.h"
#include "qt/machine.h"
#include "qt/widgets/clickable_text.h"
#include "start/console.h"

namespace quillmark {
namespace {

// The main window alone, without a radio.
class LinkLook : public testing::Test {
 protected:
  LinkLook() {
    machine.Shown.Show(main.shared_from_this());
    machine.Events.Pump();
  }
  ~LinkLook() override { machine.Shown.CloseAll(); }

  template <class Widget>
  Widget& Of(const Form& form, const char* name) {
    return *machine.Shown.WindowOf(form)->findChild<Widget*>(name);
  }

  Machine machine;
  ReportDialogs boxes;
  Platform platform = machine.AsPlatform(boxes);
  Console console{platform};
  frmOrvalent& main = console.Main();
};

TEST_F(LinkLook, TheFirstStepsStandOverTheTerminalAndNameTheRightKey) {
  const auto& steps = Of<CaptionLabel>(main, "FirstSteps");
  EXPECT_TRUE(steps.isVisible());
  const QString key = Of<QAction>(main, "mnuProperties").shortcut().toString();
  EXPECT_TRUE(steps.text().contains("Setup... (" + key + ")")) << steps.text().toStdString();
  main.FirstSteps.Visible = false;
  EXPECT_FALSE(steps.isVisible());
}

TEST_F(LinkLook, RowsLampsAndBarShowWhatTheLogicSaysOfTheLink) {
  auto& row = Of<ValueBox>(main, "SerialNumber");
  const QImage fresh = row.grab().toImage();
  main.At(SettingId::SerialNumber).Stale = true;
  EXPECT_NE(row.grab().toImage(), fresh);
  main.At(SettingId::SerialNumber).Stale = false;
  EXPECT_EQ(row.grab().toImage(), fresh);

  auto& lamp = Of<QToolButton>(main, "imgNotConnected");
  const QImage calm = lamp.icon().pixmap(24).toImage();
  main.imgNotConnected.Warns = true;
  const QImage warning = lamp.icon().pixmap(24).toImage();
  EXPECT_FALSE(warning.isNull());
  EXPECT_NE(warning, calm);
  main.imgNotConnected.Warns = false;
  EXPECT_EQ(lamp.icon().pixmap(24).toImage(), calm);

  main.barRun.Max = 40;
  main.barRun.Value = 18;
  main.barRun.Doing = "Reading";
  main.barRun.Visible = true;
  EXPECT_EQ(Of<QProgressBar>(main, "barRun").text().toStdString(), "Reading 18 of 40");
}

TEST_F(LinkLook, AListReadsItsNotesToThoseWhoCannotSeeThem) {
  const auto setup = std::make_shared<frmProperties>(platform, console.Shared(), main, [] {});
  setup->cboPort.ItemNotes = {{"/dev/ttyUSB0 (an adapter)", false}, {"", true}};
  machine.Shown.Show(setup);
  const auto& box = Of<QComboBox>(*setup, "cboPort");
  EXPECT_EQ(box.itemText(0).toStdString(), "Com1");
  EXPECT_EQ(box.itemData(0, Qt::AccessibleTextRole).toString().toStdString(),
            "Com1, /dev/ttyUSB0 (an adapter)");
  EXPECT_EQ(box.itemData(1, Qt::AccessibleTextRole).toString().toStdString(), "Com2");
}

}  // namespace
}  // namespace quillmark
