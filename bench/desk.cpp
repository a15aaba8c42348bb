#include "desk.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr Duration longestRead = Seconds(60);

// A preference file for this desk alone; gives the device that the machine is to use.
const std::string& WithPreferences(const Surroundings& surroundings, const std::string& device) {
  const auto folder = surroundings.File("config") / "quillmark-console";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "preferences.ini", std::ios::trunc) << "[Properties]\nCommPort=1\n";
  return device;
}

Platform Joined(Platform platform, EventLoop& loop, SerialPort& port, SerialPort& restorePort) {
  return {.Events = loop,
          .Dialogs = platform.Dialogs,
          .Windows = platform.Windows,
          .MSComm1 = port,
          .MSComm2 = restorePort,
          .Ports = platform.Ports,
          .Preferences = platform.Preferences,
          .Files = platform.Files,
          .Desktop = platform.Desktop,
          .Random = platform.Random};
}

}  // namespace

Answer DeskDialogs::Message(const MessageBox& box) {
  LastMessage = box.Text;
  switch (box.Choice) {
    case Buttons::YesNo:
    case Buttons::YesNoCancel:
      return Answer::Yes;
    case Buttons::RetryCancel:
      return Answer::Cancel;
    case Buttons::AbortRetryIgnore:
      return Answer::Ignore;
    default:
      return Answer::Ok;
  }
}

Desk::Desk(const Surroundings& surroundings, const std::string& device)
    : machine({.Port = WithPreferences(surroundings, device)}),
      loop(machine.Events),
      port(machine.First),
      restorePort(machine.Second),
      platform(Joined(machine.AsPlatform(boxes), loop, port, restorePort)) {
  console.emplace(platform);
  console->OnReadCycleDone = [this] {
    if (OnRead) OnRead();
  };
}

Desk::~Desk() { machine.Shown.CloseAll(); }

void Desk::ShowMain() {
  const auto shown = [this] {
    const QWidget* window = machine.Shown.WindowOf(Main());
    return window != nullptr && window->isVisible();
  };
  console->Start();
  if (!RunUntil(Seconds(10), shown)) throw std::runtime_error("the main window does not come up");
}

void Desk::Connect() {
  OnRead = [this] { Leave(); };
  Start(longestRead, "the radio is not read");
}

void Desk::ReadAgain() {
  Main().ButtonRefresh.Click();
  Run(longestRead, "the radio is not read again");
}

void Desk::Start(Duration limit, const std::string& what) {
  console->Start();
  Run(limit, what);
}

void Desk::Run(Duration limit, const std::string& what) {
  bool late = false;
  QObject owner;
  After(limit, owner, [this, &late] {
    late = true;
    Quit();
  });
  QApplication::exec();
  if (!late) return;
  const std::string& message = boxes.LastMessage;
  throw std::runtime_error(what + (message.empty() ? "" : "; the console says: " + message));
}

void Desk::Leave() { QCoreApplication::exit(0); }

void Desk::RunFor(Duration time) {
  QObject owner;
  After(time, owner, [this] { Leave(); });
  QApplication::exec();
}

bool Desk::RunUntil(Duration limit, const std::function<bool()>& done) {
  const Duration deadline = machine.Events.Now() + limit;
  while (!done() && machine.Events.Now() < deadline) RunFor(Milliseconds(20));
  return done();
}

void After(Duration time, QObject& owner, std::function<void()> act) {
  auto* timer = new QTimer(&owner);
  timer->setSingleShot(true);
  timer->setTimerType(Qt::PreciseTimer);
  QObject::connect(timer, &QTimer::timeout, timer, std::move(act));
  timer->start(std::chrono::ceil<std::chrono::milliseconds>(time));
}

}  // namespace quillmark::bench
