// The whole program: the real windows without a screen, a real pseudo-terminal, the simulated
// radio.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
#include <QScreen>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>
#include <csignal>
#include <fstream>

#include "e2e/program_fixture.h"
#include "qt/base/end_signals.h"
#include "qt/dialogs/store_trouble_boxes.h"
#include "text/at_end.h"

namespace quillmark {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

// Whether a process has a handler for a signal by now.
bool Catches(qint64 process, int signal) {
  QFile status(QString("/proc/%1/status").arg(process));
  if (!status.open(QIODevice::ReadOnly)) return false;
  const QByteArray text = status.readAll();
  const qsizetype at = text.indexOf("SigCgt:");
  const auto caught = text.mid(at + 7, 17).trimmed().toULongLong(nullptr, 16);
  return (caught >> (signal - 1) & 1) != 0;
}

struct PaintCount : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    Count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int Count = 0;
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
  Find<QPushButton>("ButtonAdv").click();
  Find<QTabBar>("SettingsTab").setCurrentIndex(4);
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
  EXPECT_THAT(boxes.Details,
              ElementsAre(HasSubstr("There is no device " + radio.link.toStdString())));
}

TEST_F(Program, HidingTheTerminalTakesItsHeightOffTheWindowAtAnySizeOfFont) {
  Prefer("False");
  const QFont usual = QApplication::font();
  const AtEnd restored([&] { QApplication::setFont(usual); });
  for (const double size : {7.0, 9.0, 12.5, 16.0, 24.0}) {
    SCOPED_TRACE(size);
    QFont font = usual;
    font.setPointSizeF(size);
    QApplication::setFont(font);
    Launch();
    const QSize shown = window->size();
    const int lower = Find<QWidget>("lowerHalf").height();
    const int terminal = Find<TerminalView>("txtTerm").height();
    for (int times = 1; times <= 10; ++times) {
      Find<QAction>("tbr_Terminal").trigger();
      machine->Events.Pump();
      EXPECT_FALSE(Find<TerminalView>("txtTerm").isVisible());
      EXPECT_NEAR(window->height(), shown.height() - terminal, 12) << times;
      EXPECT_EQ(Find<QWidget>("lowerHalf").height(), lower) << times;
      Find<QAction>("tbr_Terminal").trigger();
      machine->Events.Pump();
      EXPECT_EQ(window->size(), shown) << times;
      EXPECT_EQ(Find<QWidget>("lowerHalf").height(), lower) << times;
    }
    // In a window that the user has sized the rows get the room.
    const QSize sized(shown.width(), shown.height() + 90);
    window->resize(sized);
    for (const bool hidden : {true, false}) {
      Find<QAction>("tbr_Terminal").trigger();
      machine->Events.Pump();
      EXPECT_EQ(window->size(), sized);
      EXPECT_EQ(Find<QWidget>("lowerHalf").height() == lower, !hidden);
    }
  }
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
  window->move(-100, 50);
  const QString clock = Find<QLabel>("pnl_ConnectTime").text();
  QTimer::singleShot(0, [&] {
    machine->Events.Deliver([&] {
      Form* setup = machine->Shown.FormNamed("frmProperties");
      ASSERT_NE(setup, nullptr);
      Find<QPushButton>("ButtonAdv").click();
      EXPECT_FALSE(console->Main().AdvancedShown);
      window->close();
      EXPECT_FALSE(machine->Events.Quitting());
      EXPECT_TRUE(Until([&] { return Find<QLabel>("pnl_ConnectTime").text() != clock; }, 3));
      looked = true;
      QWidget* dialog = machine->Shown.WindowOf(*setup);
      // In the middle of the screen, wherever its owner stands.
      const QPoint off = dialog->geometry().center() - dialog->screen()->geometry().center();
      EXPECT_LE(off.manhattanLength(), 6);
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
  radio.Start({"--revision", "1.9.9", "--mode", "M", "--zone-traffic", "20"});
  const QString folder = QCoreApplication::applicationDirPath();
  QProcess report;
  report.start(folder + "/quillmark-pictures", {"--port", radio.link, home.filePath("pictures")});
  ASSERT_TRUE(report.waitForFinished(60'000));
  const std::string table = report.readAllStandardOutput().toStdString();
  const QString told = report.readAllStandardError();
  EXPECT_EQ(report.exitCode(), 0) << told.toStdString();
  // An old master lacks what these windows are for.
  QStringList missing = told.split('\n').filter("there is no picture of");
  missing.replaceInStrings("quillmark-console: there is no picture of ", "");
  EXPECT_EQ(missing.join(' ').toStdString(),
            "frmDLINKOptions frmDTYPEOptions frmRTUOptions frmXMAP frmRSSI");
  EXPECT_THAT(table, HasSubstr("\nStore and Forward Settings\n"
                               "  Store and Forward         SAF OFF\n"));
  EXPECT_THAT(table, HasSubstr("  Radio Mode                MODE M\n"));
  EXPECT_EQ(QDir(home.filePath("pictures")).entryList({"*.png"}).size(), 44);

  // A radio that was never connected is logged out all the same.
  Prefer("False");
  QProcess console;
  console.start(folder + "/quillmark-console", {});
  ASSERT_TRUE(console.waitForStarted());
  while (!Catches(console.processId(), SIGTERM)) ASSERT_FALSE(console.waitForFinished(10));
  console.terminate();
  ASSERT_TRUE(console.waitForFinished(5'000));
  EXPECT_EQ(console.exitCode(), 0);
  EXPECT_THAT(radio.Lines(), EndsWith("pass ****\n"));
}

TEST(CommandLine, TextsNeedNoDisplay) {
  QProcess console;
  console.setProcessEnvironment(QProcessEnvironment());
  const QString program = QCoreApplication::applicationDirPath() + "/quillmark-console";
  for (const char* asked : {"--version", "--help"}) {
    console.start(program, {"-platform", "xcb", asked});
    ASSERT_TRUE(console.waitForFinished(5'000));
    EXPECT_EQ(console.exitCode(), 0) << console.readAllStandardError().toStdString();
    EXPECT_THAT(console.readAllStandardOutput().toStdString(), HasSubstr("quillmark-console"));
  }
}

TEST(EndSignals, EachWayToEndAProgramIsAnEventAndALostReaderIsNone) {
  int ended = 0;
  const EndSignals handled([&] { ++ended; });
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const int before = ended;
    ASSERT_EQ(raise(signal), 0);
    EXPECT_EQ(ended, before) << "inside the handler of signal " << signal;
    QCoreApplication::processEvents();
    EXPECT_EQ(ended, before + 1) << "signal " << signal;
  }
  ASSERT_EQ(raise(SIGPIPE), 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(ended, 3);
}

TEST_F(Program, TellsOfADamagedPreferencesFileWhenTheMainWindowIsUp) {
  const auto file = IniPreferenceStore::UsualFile();
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << '\x01';
  machine.emplace(Options(), longestSleep);
  platform.emplace(machine->AsPlatform(machine->Boxes));
  console.emplace(*platform);
  const StoreTroubleBoxes troubles(machine->Store, machine->Shown, machine->Boxes, machine->Events);
  BoxAnswerer answerer;
  machine->Events.Deliver([this] { console->Start(); });
  const auto mainIsUp = [this] { return machine->Shown.WindowOf(console->Main()) != nullptr; };
  while (!mainIsUp()) {
    machine->Events.Wait(Milliseconds(10));
    ASSERT_TRUE(answerer.Texts.empty() || mainIsUp());
  }
  ASSERT_TRUE(Until([&] { return !answerer.Texts.empty(); }));
  // The same trouble again is no news; another kind is.
  std::ofstream(file) << '\x01';
  machine->Store.Reload();
  std::filesystem::remove(file);
  std::filesystem::create_directory(file);
  machine->Store.Write("Preferences", "KeepAlive", "False");
  ASSERT_TRUE(Until([&] { return answerer.Texts.size() > 1; }));
  EXPECT_THAT(answerer.Texts, ElementsAre("The preferences file is damaged.",
                                          "The preferences file cannot be read."));
  EXPECT_EQ(answerer.Details.back().find("The file " + file.string() + " is there, but"), 0u);
}

}  // namespace
}  // namespace quillmark
