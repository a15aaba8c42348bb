#include "qt/base/qt_event_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDateTime>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <thread>

namespace quillmark {

QtEventLoop::QtEventLoop(Duration longest) : longestSleep(longest) {}
QtEventLoop::~QtEventLoop() = default;

void QtEventLoop::LeaveWhenQuitting() const {
  if (quitting) throw Shutdown{};
}

void QtEventLoop::Pump() {
  LeaveWhenQuitting();
  QCoreApplication::processEvents();
  LeaveWhenQuitting();
}

void QtEventLoop::Wait(Duration bound) {
  if (bound <= Duration::zero()) return Pump();
  LeaveWhenQuitting();
  // Asked to wait, some dispatchers deliver what is due and then wait all the same.
  if (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    return LeaveWhenQuitting();
  }
  // A time limit given to processEvents would make it spin; a timer of its own ends the wait.
  QTimer alarm;
  alarm.setSingleShot(true);
  alarm.setTimerType(Qt::PreciseTimer);
  alarm.start(std::chrono::ceil<std::chrono::milliseconds>(bound));
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  LeaveWhenQuitting();
}

void QtEventLoop::Sleep(Duration time) {
  LeaveWhenQuitting();
  const auto end = std::chrono::steady_clock::now() + std::min(time, longestSleep);
  PaintPending();
  std::this_thread::sleep_until(end);
}

// Timers and input stay where they are: only layout and paint requests are sent.
void QtEventLoop::PaintPending() {
  emit AboutToSleep();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
}

void QtEventLoop::StartTimer(Ticker& ticker, Duration interval) {
  auto& timer = timers[&ticker];
  if (timer == nullptr) {
    // One that was stopped is a child of this.
    timer.reset(findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly));
    if (timer == nullptr) timer = std::make_unique<QTimer>();
    timer->setParent(nullptr);
    timer->setTimerType(Qt::PreciseTimer);
    connect(timer.get(), &QTimer::timeout, this,
            [this, &ticker] { Deliver([&ticker] { ticker.Tick(); }); });
  }
  timer->start(std::chrono::ceil<std::chrono::milliseconds>(interval));
}

void QtEventLoop::StopTimer(Ticker& ticker) {
  const auto found = timers.find(&ticker);
  if (found == timers.end()) return;
  // Its own tick may be on the stack, so it stays, for the next start. A deletion later on would
  // need a loop of Qt's own, which a program without windows never runs.
  found->second->stop();
  disconnect(found->second.get(), nullptr, this, nullptr);
  found->second.release()->setParent(this);
  timers.erase(found);
}

Duration QtEventLoop::Now() const {
  return std::chrono::duration_cast<Duration>(std::chrono::steady_clock::now().time_since_epoch());
}

std::int64_t QtEventLoop::LocalSeconds() const {
  const QDateTime now = QDateTime::currentDateTime();
  return now.toSecsSinceEpoch() + now.offsetFromUtc();
}

std::int64_t QtEventLoop::UtcSeconds() const { return QDateTime::currentSecsSinceEpoch(); }

// QCoreApplication::quit would first ask every window.
void QtEventLoop::Quit() {
  quitting = true;
  QCoreApplication::exit(0);
}

void QtEventLoop::Defect(const std::string& what) noexcept {
  const auto tell = [](const char* text) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(QCoreApplication::applicationName()), text);
  };
  try {
    tell(("internal error: " + what).c_str());
    ShowDefect(what);
  } catch (...) {
    tell("the error could not be shown");
  }
}

void QtEventLoop::ShowDefect(const std::string& what) {
  if (quitting || showingDefect || !OnDefect) return;
  showingDefect = true;
  OnDefect(what);
  showingDefect = false;
}

}  // namespace quillmark
