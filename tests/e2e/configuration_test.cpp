// Configurations in the real windows: files, presets, and a second radio that is programmed from
// what the first one gave.

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

#include "e2e/program_fixture.h"
#include "restore/frmRestore.h"

namespace quillmark {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class Configurations : public Program {
 protected:
  // Reads the radio anew after `act`, which asks for that.
  void AndRead(const std::function<void()>& act) {
    const int before = readCycles;
    act();
    ASSERT_TRUE(Until([&] { return readCycles > before; }));
  }
  // A row of the file goes into the radio by the window that has a port of its own.
  void WriteBackInTheRestoreWindow();
  // Another run of the program, with the same folders.
  void Relaunch() {
    window->close();
    EXPECT_TRUE(machine->Events.Quitting());
    console.reset();
    platform.reset();
    machine.reset();
    QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    QApplication::exec();
    Launch();
  }
};

void ChooseFile(QWidget& dialog, const QString& path) {
  dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
  static_cast<QDialog&>(dialog).accept();
}

void AnswerInput(QWidget& box, const QString& text) {
  box.findChild<QLineEdit*>("inputLine")->setText(text);
  box.findChild<QPushButton*>("Ok")->click();
}

void Configurations::WriteBackInTheRestoreWindow() {
  const auto form = [this] {
    return static_cast<frmRestore*>(machine->Shown.FormNamed("frmRestore"));
  };
  const auto idle = [&](QWidget&) { return form()->ReadIdle && !form()->ReadPending; };
  const auto trigger = [](const char* action) {
    return [action](QWidget& shown) { shown.findChild<QAction*>(action)->trigger(); };
  };
  Type("own Valley\r");
  ASSERT_TRUE(Until([this] { return Terminal().ends_with("PROGRAMMED OK\n>"); }));
  Hand hand;
  hand.Plan("frmRestore", trigger("tbr_OpenConfig"), idle);
  hand.Plan("FileDialog",
            [this](QWidget& dialog) { ChooseFile(dialog, home.filePath("H\u00fcgel <1>.txt")); });
  hand.Plan(
      "frmRestore",
      [](QWidget& shown) { shown.findChild<QAbstractButton*>("CheckAllButton")->click(); },
      [&](QWidget&) { return form()->At(SettingId::XADDR).New.Text() == "XADDR 0"; });
  hand.Plan("frmRestore", trigger("tbr_ProgramRadio"));
  hand.Plan(
      "frmRestore", [](QWidget& shown) { Press(shown, Qt::Key_Escape); }, idle);
  hand.Start();
  AndRead([&] {
    trigger("mnuConfigRestore")(*window);
    EXPECT_TRUE(Until([&] { return hand.Done() && form() == nullptr; }, 60));
  });
  EXPECT_EQ(Value("OwnerName"), "Hill top");
}

TEST_F(Configurations, OfOneRadioGoIntoAnotherAndPresetsOutliveTheProgram) {
  // One word clears a radio sooner than the set that ships with the program.
  QDir(home.path()).mkpath("quillmark-console");
  QFile clearing(home.filePath("quillmark-console/NewRadio.txt"));
  ASSERT_TRUE(clearing.open(QIODevice::WriteOnly) && clearing.write("OWM cleared\r\n") > 0);
  clearing.close();
  radio.Start({"--revision", "1.9.0"});
  Prefer("True");
  BoxAnswerer boxes;
  AndRead([this] { Launch(); });
  Type("own Hill top\r");
  ASSERT_TRUE(Until([this] { return Terminal().ends_with("PROGRAMMED OK\n>"); }));
  Hand hand;
  hand.Plan("FileDialog",
            [this](QWidget& dialog) { ChooseFile(dialog, home.filePath("H\u00fcgel <1>")); });
  hand.Start();
  AndRead([this] { Find<QPushButton>("cmdSaveToFile").click(); });
  hand.Plan("InputBox", [](QWidget& box) { AnswerInput(box, "Hill & top"); });
  hand.Plan("InputBox", [](QWidget& box) { AnswerInput(box, "The <b>first</b> one"); });
  hand.Start();
  Find<QPushButton>("cmdSaveToPreset").click();

  // The other radio stands on the same line.
  radio.Stop();
  radio.Start({"--revision", "1.9.0"});
  AndRead([this] { Relaunch(); });
  EXPECT_EQ(Value("OwnerName"), "Quillmark SS");
  auto& preset = Find<QPushButton>("cmdPre_0");
  EXPECT_THAT(preset.toolTip().toStdString(), HasSubstr("The &lt;b&gt;first&lt;/b&gt; one"));
  EXPECT_EQ(Find<QPushButton>("cmdPre_1").text(), "(Empty)");
  hand.Plan("frmViewer", [](QWidget& viewer) {
    EXPECT_EQ(viewer.windowTitle(), "Hill & top");
    EXPECT_THAT(viewer.findChild<QPlainTextEdit*>("txtViewer")->toPlainText().toStdString(),
                AllOf(StartsWith("#PresetFile1\n#Name:The <b>first</b> one\n"
                                 "#PresetCaption:Hill & top\n#Created by Kelvor Quillmark "
                                 "Configuration Software Version "),
                      HasSubstr("\nUNIT 3456\nOWN Hill top\n")));
    viewer.findChild<QPushButton*>("cmdClose")->click();
  });
  hand.Start();
  emit preset.customContextMenuRequested({});
  EXPECT_TRUE(Find<QMenu>("mnuPreset").isVisible());
  Find<QAction>("mnuPresetView").trigger();
  Find<QMenu>("mnuPreset").close();

  hand.Plan("FileDialog",
            [this](QWidget& dialog) { ChooseFile(dialog, home.filePath("H\u00fcgel <1>.txt")); });
  hand.Plan("InputBox", [](QWidget& box) { AnswerInput(box, "UNIT 12345"); });
  hand.Start();
  AndRead([this] { Find<QPushButton>("cmdProgramFromFile").click(); });
  EXPECT_TRUE(hand.Done());
  EXPECT_THAT(radio.Lines(), HasSubstr(" s: OWM cleared\n"));
  EXPECT_EQ(Value("OwnerName"), "Hill top");
  EXPECT_THAT(boxes.Texts, ElementsAre("New Unit: UNIT 12345"));
  WriteBackInTheRestoreWindow();
}

}  // namespace
}  // namespace quillmark
