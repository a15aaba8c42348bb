#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "qt/machine.h"
#include "qt/widgets/clickable_text.h"
#include "qt/widgets/terminal_view.h"
#include "start/console.h"

namespace quillmark {

// The simulated radio as a program, behind a link that lasts.
class RadioProgram {
 public:
  explicit RadioProgram(const QString& folder)
      : link(folder + "/radio"), log(folder + "/radio.log") {}
  ~RadioProgram() { Stop(); }

  void Start(const QStringList& options = {}) {
    process.start(
        QCoreApplication::applicationDirPath() + "/quillmark-radio",
        QStringList{"--link", link, "--log", log, "--pace", "none", "--think-ms", "1"} + options);
    ASSERT_TRUE(process.waitForStarted());
    ASSERT_TRUE(process.waitForReadyRead(5000));
    ASSERT_TRUE(QFile::exists(link));
  }
  // It may be started again, as another radio.
  void Stop() {
    process.terminate();
    process.waitForFinished(3000);
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

// The text of a box without the marks where its long words may break.
inline std::string TextOf(const QLabel& label) {
  return (label.accessibleName().isEmpty() ? label.text() : label.accessibleName()).toStdString();
}

// Answers every box with the button of that name, and keeps their texts.
class BoxAnswerer {
 public:
  BoxAnswerer() {
    QObject::connect(&look, &QTimer::timeout, [this] {
      QWidget* box = QApplication::activeModalWidget();
      if (box == nullptr || box->objectName() != "MessageBox") return;
      Texts.push_back(TextOf(*box->findChild<QLabel*>("messageText")));
      auto* details = box->findChild<QLabel*>("messageDetails");
      Details.push_back(details == nullptr ? "" : TextOf(*details));
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

inline void TypeInto(QWidget& widget, const std::string& keys) {
  for (const char key : keys) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(key)));
    QCoreApplication::sendEvent(&widget, &press);
  }
}

inline void Press(QWidget& widget, Qt::Key key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &press);
}

inline void ClickOn(QWidget& widget) {
  const QPointF middle = widget.rect().center();
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent click(type, middle, widget.mapToGlobal(middle), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &click);
  }
}

// Does what is planned in the windows that come up and wait: for each in turn the name of the
// window, the acts, and when it is ready for them. They may call up the next.
class Hand {
 public:
  using Acts = std::function<void(QWidget& window)>;
  using Ready = std::function<bool(QWidget& window)>;

  void Plan(const char* window, Acts acts, Ready ready = {}) {
    steps.push_back({window, std::move(acts), std::move(ready)});
  }
  void Start() {
    patience.setRemainingTime(stepTime);
    LookSoon();
  }
  bool Done() const { return steps.empty(); }

 private:
  static constexpr int stepTime = 20'000;  // ms

  struct Step {
    const char* Window;
    Acts Do;
    Ready Awaited;
  };

  void LookSoon() {
    QTimer::singleShot(5, &life, [this] { Look(); });
  }

  void Look() {
    if (steps.empty()) return;
    LookSoon();
    QWidget* front = QApplication::activeModalWidget();
    if (patience.hasExpired()) {
      ADD_FAILURE() << "What was planned in " << steps.front().Window << " could not be done";
      steps.clear();
      if (front != nullptr) front->close();
      return;
    }
    if (front == nullptr || front->objectName() != steps.front().Window) return;
    if (steps.front().Awaited && !steps.front().Awaited(*front)) return;
    const Acts acts = std::move(steps.front().Do);
    steps.pop_front();
    patience.setRemainingTime(stepTime);
    acts(*front);
  }

  std::list<Step> steps;
  QDeadlineTimer patience;
  QObject life;
};

// A console on the simulated radio, in folders of its own.
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

  void Prefer(const QString& connectOnLaunch) { Prefer(connectOnLaunch, radio.link); }
  static void Prefer(const QString& connectOnLaunch, const QString& device) {
    IniPreferenceStore store(IniPreferenceStore::UsualFile());
    store.Write("Ports", "Com1", device.toStdString());
    store.Write("Preferences", "ConnectOnLaunch", connectOnLaunch.toStdString());
  }
  // Anew, if it is there already.
  void Launch() {
    if (machine) machine->Shown.CloseAll();
    console.reset();
    machine.emplace(Options(), longestSleep);
    platform.emplace(machine->AsPlatform(machine->Boxes));
    console.emplace(*platform);
    console->OnReadCycleDone = [this] { ++readCycles; };
    machine->Events.Deliver([this] { console->Start(); });
    // Nobody waits for the first window to go by itself.
    machine->Events.Deliver([this] {
      if (Form* splash = machine->Shown.FormNamed("frmSplash")) splash->UserKey();
    });
    ASSERT_TRUE(Until([this] { return machine->Shown.WindowOf(console->Main()) != nullptr; }));
    window = machine->Shown.WindowOf(console->Main());
  }
  bool Until(const std::function<bool()>& done, double seconds = 10) {
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
  void Type(const std::string& keys) { TypeInto(Find<TerminalView>("txtTerm"), keys); }

  // What the program gives a radio to begin its answer, and no more.
  static constexpr Duration longestSleep = Milliseconds(50);
  QTemporaryDir home;
  RadioProgram radio{home.path()};
  std::optional<Machine> machine;
  std::optional<Platform> platform;
  std::optional<Console> console;
  QWidget* window = nullptr;
  int readCycles = 0;
};

}  // namespace quillmark
