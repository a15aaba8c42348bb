#include "start_report.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <fstream>

#include "controls/form.h"
#include "platform/event_loop.h"
#include "qt/binding/qt_windows.h"

namespace quillmark::bench {

namespace {

long long ResidentBytes() {
  std::ifstream memory("/proc/self/statm");
  long long whole = 0;
  long long resident = 0;
  memory >> whole >> resident;
  return resident * sysconf(_SC_PAGESIZE);
}

}  // namespace

void PrintStart() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  const auto microseconds = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
  std::printf("window-painted-us %lld\nresident-bytes %lld\n", static_cast<long long>(microseconds),
              ResidentBytes());
  std::fflush(stdout);
}

StartReport::StartReport(QtWindows& shown, EventLoop& loop) : windows(shown), events(loop) {
  QCoreApplication::instance()->installEventFilter(this);
}

// The event comes before the painting, which is done when the loop next looks for work.
bool StartReport::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Paint) return false;
  if (!splashSeen && watched->objectName() == QLatin1String("frmSplash")) {
    splashSeen = true;
    QTimer::singleShot(0, this, &StartReport::CloseSplash);
  }
  if (!mainSeen && watched->objectName() == QLatin1String("frmOrvalent")) {
    mainSeen = true;
    QTimer::singleShot(0, this, &StartReport::Finish);
  }
  return false;
}

void StartReport::CloseSplash() {
  Form* splash = windows.FormNamed("frmSplash");
  if (splash != nullptr) events.Deliver([splash] { splash->UserKey(); });
}

void StartReport::Finish() {
  PrintStart();
  events.Quit();
}

}  // namespace quillmark::bench
