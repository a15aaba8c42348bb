// The whole program: the real windows without a screen, a real pseudo-terminal, the simulated
// radio.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <memory>

#include "app/console.h"
#include "qt/clickable_text.h"
#include "qt/machine.h"
#include "qt/message_window.h"
#include "qt/terminal_view.h"

namespace quillmark {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

// The simulated radio as a program, behind a link that lasts.
class RadioProgram {
 public:
  explicit RadioProgram(const QString& folder)
      : link(folder + "/radio"), log(folder + "/radio.log") {}
  ~RadioProgram() {
    process.terminate();
    process.waitForFinished(3000);
  }

  void Start(const QStringList& options = {}) {
    process.start(
        QCoreApplication::applicationDirPath() + "/quillmark-radio",
        QStringList{"--link", link, "--log", log, "--pace", "none", "--think-ms", "1"} + options);
    ASSERT_TRUE(process.waitForStarted());
    ASSERT_TRUE(process.waitForReadyRead(5000));
    ASSERT_TRUE(QFile::exists(link));
  }
  void HangUp() const { kill(static_cast<pid_t>(process.processId()), SIGUSR1); }
  bool Present() const { return QFile::exists(link); }
  // What it has been sent, passwords masked.
  std::string Lines() const {
    QFile file(log);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "";
  }

  const QString link;

 private:
  const QString log;
  QProcess process;
};

// Whether a process has a handler for a signal by now.
bool Catches(qint64 process, int signal) {
  QFile status(QString("/proc/%1/status").arg(process));
  if (!status.open(QIODevice::ReadOnly)) return false;
  const QByteArray text = status.readAll();
  const qsizetype at = text.indexOf("SigCgt:");
  const auto caught = text.mid(at + 7, 17).trimmed().toULongLong(nullptr, 16);
  return (caught >> (signal - 1) & 1) != 0;
}

// Answers every box with the button of that name, and keeps their texts.
class BoxAnswerer {
 public:
  BoxAnswerer() {
    QObject::connect(&look, &QTimer::timeout, [this] {
      QWidget* box = QApplication::activeModalWidget();
      if (box == nullptr || box->objectName() != "MessageBox") return;
      Texts.push_back(box->findChild<QLabel*>("messageText")->text().toStdString());
      auto* details = box->findChild<QLabel*>("messageDetails");
      Details.push_back(details == nullptr ? "" : details->text().toStdString());
      box->findChild<QPushButton*>(Button)->click();
    });
    look.start(10);
  }

  QString Button = "Ok";
  std::vector<std::string> Texts;
  std::vector<std::string> Details;

 private:
  QTimer look;
};

struct PaintCount : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    Count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int Count = 0;
};

class Program : public testing::Test {
 protected:
  Program() {
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    // A test before may have ended its program; the next loop is a new one's.
    QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    QApplication::exec();
  }
  ~Program() override {
    if (machine) machine->Shown.CloseAll();
  }

  void Prefer(const QString& connectOnLaunch) {
    IniPreferenceStore store(IniPreferenceStore::UsualFile());
    store.Write("Ports", "Com1", radio.link.toStdString());
    store.Write("Preferences", "ConnectOnLaunch", connectOnLaunch.toStdString());
  }
  void Launch() {
    machine.emplace();
    platform.emplace(machine->AsPlatform(machine->Boxes));
    console.emplace(*platform);
    console->OnReadCycleDone = [this] { ++readCycles; };
    machine->Events.Deliver([this] { console->Start(); });
    ASSERT_TRUE(Until([this] { return machine->Shown.WindowOf(console->Main()) != nullptr; }));
    window = machine->Shown.WindowOf(console->Main());
  }
  bool Until(std::function<bool()> done, double seconds = 10) {
    return WaitUntil(machine->Events, Seconds(seconds), done);
  }
  template <class Widget>
  Widget& Find(const char* name) const {
    auto* widget = window->findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
    return *widget;
  }
  std::string Value(const char* name) const { return Find<ValueBox>(name).text().toStdString(); }
  std::string Terminal() const { return Find<TerminalView>("txtTerm").toPlainText().toStdString(); }
  void Type(const std::string& keys) {
    for (const char key : keys) {
      QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(key)));
      QCoreApplication::sendEvent(&Find<TerminalView>("txtTerm"), &press);
    }
  }

  QTemporaryDir home;
  RadioProgram radio{home.path()};
  std::optional<Machine> machine;
  std::optional<Platform> platform;
  std::optional<Console> console;
  QWidget* window = nullptr;
  int readCycles = 0;
};

TEST_F(Program, ConnectsReadsShowsSurvivesAnUnplugAndComesBack) {
  radio.Start({"--reappear-ms", "200"});
  Prefer("True");
  BoxAnswerer boxes;
  Launch();
  ASSERT_TRUE(Until([this] { return readCycles == 1; }));
  EXPECT_THAT(boxes.Texts, ElementsAre());
  EXPECT_EQ(Value("Mode"), "MODE R");
  EXPECT_EQ(Value("SerialNumber"), "SN 00123456");
  EXPECT_EQ(Value("SoftwareRev"), "77-1234A01 3.2.0  01Jan2009");
  EXPECT_TRUE(Find<QToolButton>("imgConnected").isVisible());
  EXPECT_FALSE(Find<QToolButton>("imgNotConnected").isVisible());
  EXPECT_FALSE(Find<QAction>("tbr_Connect").isEnabled());

  Find<QPushButton>("ButtonAdv").click();
  Find<QTabBar>("SettingsTab").setCurrentIndex(4);
  EXPECT_EQ(Find<QStackedWidget>("viewStack").currentWidget()->objectName(), "NetSet_4");
  EXPECT_TRUE(Find<ValueBox>("XPRI").isVisible());
  EXPECT_FALSE(Find<ValueBox>("XMIN").isVisible());
  Find<QPushButton>("ButtonAdv").click();
  EXPECT_TRUE(Find<QWidget>("frQuick").isVisible());

  auto& address = Find<QLineEdit>("txtNewADDR");
  address.setFocus();
  address.clear();
  emit address.textEdited("12x");
  boxes.Texts.clear();
  Find<QComboBox>("cmbBaud").setFocus();
  EXPECT_TRUE(Until([&] { return !boxes.Texts.empty(); }));
  EXPECT_THAT(boxes.Texts, ElementsAre(HasSubstr("The ADDR entered is not numeric.")));
  boxes.Texts.clear();

  Type("hoptime\r");
  EXPECT_TRUE(Until([this] { return Terminal().ends_with(">hoptime\nHOPTIME 7\n>"); }))
      << Terminal();

  radio.HangUp();
  ASSERT_TRUE(Until([&] { return !boxes.Texts.empty(); }));
  EXPECT_TRUE(Until([this] { return Find<QAction>("tbr_Connect").isEnabled(); }));
  EXPECT_THAT(boxes.Texts, ElementsAre("Unknown error or event"));
  EXPECT_TRUE(Find<QToolButton>("imgNotConnected").isVisible());
  EXPECT_EQ(Value("Mode"), "MODE R");

  ASSERT_TRUE(Until([this] { return radio.Present(); }));
  Find<QAction>("tbr_Connect").trigger();
  ASSERT_TRUE(Until([this] { return readCycles == 2; }));
  EXPECT_TRUE(Find<QToolButton>("imgConnected").isVisible());
  EXPECT_EQ(boxes.Texts.size(), 1u);

  window->close();
  EXPECT_TRUE(machine->Events.Quitting());
  EXPECT_FALSE(window->isVisible());
  EXPECT_THAT(radio.Lines(), EndsWith("pass ****\n"));
}

TEST_F(Program, APortThatIsMissingIsToldWithItsCure) {
  Prefer("False");
  BoxAnswerer boxes;
  Launch();
  Find<QToolButton>("imgNotConnected").click();
  EXPECT_THAT(boxes.Texts,
              ElementsAre("The selected COM port is not available. Please select another port."));
  EXPECT_THAT(boxes.Details,
              ElementsAre(HasSubstr("There is no device " + radio.link.toStdString())));
  EXPECT_TRUE(Find<QAction>("tbr_Connect").isEnabled());
}

TEST_F(Program, HidingTheTerminalTakesItsHeightOffTheWindow) {
  Prefer("False");
  Launch();
  const QSize before = window->size();
  Find<QAction>("tbr_Terminal").trigger();
  EXPECT_FALSE(Find<TerminalView>("txtTerm").isVisible());
  EXPECT_LT(window->height(), before.height() - 100);
  EXPECT_GE(Find<QWidget>("lowerHalf").height(),
            Find<QWidget>("frQuick").minimumSizeHint().height());
  Find<QAction>("tbr_Terminal").trigger();
  EXPECT_EQ(window->size(), before);
}

TEST_F(Program, WhatIsSetBeforeASleepIsSeenDuringIt) {
  Prefer("False");
  Launch();
  machine->Events.Pump();
  PaintCount painted;
  Find<TerminalView>("txtTerm").viewport()->installEventFilter(&painted);
  Find<QLabel>("pnl_Status").installEventFilter(&painted);
  QTimer early;
  bool ticked = false;
  QObject::connect(&early, &QTimer::timeout, [&] { ticked = true; });
  early.start(0);
  console->Main().txtTerm.Text = "Connecting..";
  console->Main().pnl_Status.Text = "Status: Connecting....";
  machine->Events.Sleep(Milliseconds(5));
  EXPECT_EQ(Terminal(), "Connecting..");
  EXPECT_EQ(Find<QLabel>("pnl_Status").text(), "Status: Connecting....");
  EXPECT_EQ(painted.Count, 2);
  EXPECT_FALSE(ticked);
}

TEST_F(Program, AModalWindowBlocksItsOwnerAndLetsTimersTick) {
  Prefer("False");
  Launch();
  bool looked = false;
  const QString clock = Find<QLabel>("pnl_ConnectTime").text();
  QTimer::singleShot(0, [&] {
    machine->Events.Deliver([&] {
      Form* setup = machine->Shown.FormNamed("frmProperties");
      ASSERT_NE(setup, nullptr);
      Find<QPushButton>("ButtonAdv").click();
      EXPECT_FALSE(console->Main().AdvancedShown);
      window->close();
      EXPECT_FALSE(machine->Events.Quitting());
      // Hidden for a while, it still blocks its owner.
      setup->Visible = false;
      Find<QPushButton>("ButtonAdv").click();
      EXPECT_FALSE(console->Main().AdvancedShown);
      setup->Visible = true;
      EXPECT_TRUE(Until([&] { return Find<QLabel>("pnl_ConnectTime").text() != clock; }, 3));
      looked = true;
      QWidget* dialog = machine->Shown.WindowOf(*setup);
      QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
      QCoreApplication::sendEvent(dialog, &escape);
    });
  });
  Find<QAction>("mnuProperties").trigger();
  EXPECT_TRUE(looked);
  EXPECT_EQ(machine->Shown.FormNamed("frmProperties"), nullptr);
  Find<QPushButton>("ButtonAdv").click();
  EXPECT_TRUE(console->Main().AdvancedShown);
}

TEST_F(Program, QuittingInsideAModalWindowEndsIt) {
  Prefer("False");
  Launch();
  QTimer::singleShot(0, [this] { machine->Events.Quit(); });
  Find<QAction>("mnuProperties").trigger();
  EXPECT_THROW(machine->Events.Pump(), Shutdown);
  EXPECT_EQ(machine->Boxes.Message({"No box on the way out", "", Icon::None, Buttons::YesNo}),
            Answer::No);
}

// What a person starts from a terminal.
TEST_F(Program, ReportsWithoutAPersonAndEndsOnASignal) {
  radio.Start({"--revision", "1.9.9", "--mode", "M"});
  const QString program = QCoreApplication::applicationDirPath() + "/quillmark-console";
  QProcess report;
  report.start(program, {"--port", radio.link, "--report", home.filePath("pictures")});
  QProcess silent;
  ASSERT_TRUE(report.waitForFinished(20'000));
  const std::string table = report.readAllStandardOutput().toStdString();
  EXPECT_EQ(report.exitCode(), 0) << report.readAllStandardError().toStdString();
  EXPECT_THAT(table, HasSubstr("\nStore and Forward Settings\n"
                               "  Store and Forward         SAF OFF\n"));
  EXPECT_THAT(table, HasSubstr("  Radio Mode                MODE M\n"));
  EXPECT_EQ(QDir(home.filePath("pictures")).entryList({"*.png"}).size(), 9);

  silent.start(program, {"--port", "/dev/ttyNONE", "--report", home.filePath("pictures")});
  ASSERT_TRUE(silent.waitForFinished(5'000));
  EXPECT_EQ(silent.exitCode(), 1);
  EXPECT_THAT(silent.readAllStandardError().toStdString(),
              HasSubstr("The radio could not be read."));

  // A radio that was never connected is logged out all the same.
  Prefer("False");
  QProcess console;
  console.start(program, {});
  ASSERT_TRUE(console.waitForStarted());
  while (!Catches(console.processId(), SIGTERM)) ASSERT_FALSE(console.waitForFinished(10));
  console.terminate();
  ASSERT_TRUE(console.waitForFinished(5'000));
  EXPECT_EQ(console.exitCode(), 0);
  EXPECT_THAT(radio.Lines(), EndsWith("pass ****\n"));
}

}  // namespace
}  // namespace quillmark
