#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <fstream>

#include "program_fixture.h"
#include "qt/printing.h"
#include "qt/qt_dialogs.h"
#include "qt/qt_event_loop.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

TEST(PrintDialog, WithoutAPrinterAsksForAPdfAndBeforeItReplacesOne) {
  if (HasPrinter()) GTEST_SKIP() << "this machine has a printer";
  const QTemporaryDir folder;
  const fs::path in = folder.path().toStdString();
  std::ofstream(in / "old.pdf") << "an older report";
  QtEventLoop events;
  QtDialogs dialogs(events);
  const auto enter = [](QWidget& dialog, const fs::path& name) {
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name.string()));
    static_cast<QDialog&>(dialog).accept();
  };
  const auto answer = [](QMessageBox::StandardButton button) {
    return [button](QWidget& box) { static_cast<QMessageBox&>(box).button(button)->click(); };
  };

  Hand hand;
  hand.Plan("FileDialog", [&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save Report as PDF");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "0123456.pdf");
    EXPECT_TRUE(static_cast<QFileDialog&>(dialog).directory().exists());
    // The question holds up the acceptance; what follows is done meanwhile.
    enter(dialog, in / "old.pdf");
  });
  hand.Plan("", answer(QMessageBox::No));
  hand.Plan("FileDialog", [&](QWidget& dialog) { enter(dialog, in / "old"); });
  hand.Plan("", answer(QMessageBox::Yes));
  hand.Start();
  const auto target = dialogs.ChoosePrinter("/tmp/0123456.txt");
  EXPECT_TRUE(hand.Done());
  ASSERT_TRUE(target.has_value());
  EXPECT_EQ(target->Printer, "");
  EXPECT_EQ(target->PdfFile, in / "old.pdf");

  hand.Plan("FileDialog", [](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); });
  hand.Start();
  EXPECT_FALSE(dialogs.ChoosePrinter("config.txt").has_value());
}

}  // namespace
}  // namespace quillmark
