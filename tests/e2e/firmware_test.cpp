// The firmware upgrade in the real windows, over a real pseudo-terminal.

#include <QAction>
#include <QFileDialog>
#include <QProgressBar>
#include <fstream>

#include "e2e/program_fixture.h"
#include "sim/firmware_image.h"

namespace quillmark {
namespace {

using testing::ElementsAre;

// Chooses the file, says Yes or Ok to every box, and does what is planned at the progress window
// while bytes go out.
class Upgrader {
 public:
  Upgrader(const QtWindows& windows, const QString& chosen) : shown(windows) {
    QObject::connect(&look, &QTimer::timeout, [this, chosen] {
      QWidget* front = QApplication::activeModalWidget();
      if (front != nullptr && front->objectName() == "FileDialog") {
        qobject_cast<QFileDialog*>(front)->selectFile(chosen);
        QMetaObject::invokeMethod(front, "accept");
      } else if (front != nullptr && front->objectName() == "MessageBox") {
        // Nobody is quicker; and the radio must have read EXIT before the rate changes.
        if (++looksAtBox < 20) return;
        looksAtBox = 0;
        AnswerBox(*front);
      } else if (Form* form = shown.FormNamed("frmProgram")) {
        LookAt(*shown.WindowOf(*form));
      }
    });
    look.start(5);
  }

  std::vector<std::string> Texts;
  std::function<void(QWidget&)> WhileSending;

 private:
  void AnswerBox(QWidget& box) {
    Texts.push_back(box.findChild<QLabel*>("messageText")->text().toStdString());
    auto* yes = box.findChild<QPushButton*>("Yes");
    (yes != nullptr ? yes : box.findChild<QPushButton*>("Ok"))->click();
  }
  void LookAt(QWidget& window) {
    if (!window.findChild<QLabel*>("lblLeft")->text().contains("s left")) return;
    if (std::exchange(acting, true)) return;
    WhileSending(window);
    acting = false;
  }

  const QtWindows& shown;
  QTimer look;
  int looksAtBox = 0;
  bool acting = false;
};

TEST_F(Program, UpgradesTheFirmware) {
  radio.Start({"--enter-ms", "50", "--erase-ms", "100", "--verify-ms", "50", "--start-ms", "50"});
  Prefer("True");
  const QString file = home.path() + "/new.s28";
  std::ofstream(file.toStdString(), std::ios::binary) << sim::FirmwareImage("3.2.1", 16 * 1024);
  Launch();
  Upgrader user(machine->Shown, file);
  ASSERT_TRUE(Until([this] { return readCycles == 1; }));

  std::string seen;
  int percent = 0;
  user.WhileSending = [&](QWidget& progress) {
    percent = progress.findChild<QProgressBar*>("ProgressBar1")->value();
    if (!seen.empty()) return;
    // Always on top, and back when another window is made the active one.
    EXPECT_TRUE(progress.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    window->activateWindow();
    EXPECT_TRUE(Until([this] { return QApplication::activeWindow() == window; }, 1));
    EXPECT_TRUE(progress.isVisible() && progress.findChild<QPushButton*>("Command1")->isEnabled());
    seen = progress.windowTitle().toStdString() + " | " +
           progress.findChild<QLabel*>("Label1")->text().toStdString();
  };
  Find<QAction>("tbr_TransmitTextFile").trigger();
  EXPECT_EQ(seen, "Downloading Firmware to the radio... | Transmitting S28 File - new.s28");
  EXPECT_THAT(user.Texts,
              ElementsAre("Ready to erase the current firmware, version 3.2.0, and install version "
                          "3.2.1.\n\n\t\tAre you sure you wish to continue?",
                          "Radio programming was successful."));
  EXPECT_GT(percent, 80);
  ASSERT_TRUE(Until([this] { return readCycles == 2; }));
  EXPECT_EQ(Value("SoftwareRev"), "77-1234A01 3.2.1  01Jan2009");
}

}  // namespace
}  // namespace quillmark
