#pragma once

#include <QObject>

namespace quillmark {

class EventLoop;
class QtWindows;

namespace bench {

// Prints two lines: when this process had its window on the screen ("window-painted-us", on the
// system's monotonic clock), and the memory that it holds now ("resident-bytes").
void PrintStart();

// For measuring a start: closes the first window as soon as it is painted, as a key would, prints
// the lines above when the main window is painted, and ends the program. Made before the first
// window.
class StartReport : public QObject {
 public:
  StartReport(QtWindows& windows, EventLoop& events);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void CloseSplash();
  void Finish();

  QtWindows& windows;
  EventLoop& events;
  bool splashSeen = false;
  bool mainSeen = false;
};

}  // namespace bench

}  // namespace quillmark
