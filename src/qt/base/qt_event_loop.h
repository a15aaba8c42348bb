#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/event_loop.h"

class QTimer;

namespace quillmark {

// Qt's event loop, as the logic wants it. The program makes one after its application object; it
// outlives every window, port and timer.
class QtEventLoop : public QObject, public EventLoop {
  Q_OBJECT

 public:
  // No sleep lasts longer than `longestSleep`; only tests set it, whose radio needs no pauses.
  explicit QtEventLoop(Duration longestSleep = Duration::max());
  ~QtEventLoop() override;

  void Pump() override;
  void Wait(Duration bound) override;
  void Sleep(Duration time) override;
  Duration LongestPause() const override { return longestSleep; }

  void StartTimer(Ticker& ticker, Duration interval) override;
  void StopTimer(Ticker& ticker) override;

  Duration Now() const override;
  std::int64_t LocalSeconds() const override;
  std::int64_t UtcSeconds() const override;

  // Ends the outermost loop and every dialog's own.
  void Quit() override;
  bool Quitting() const override { return quitting; }

  // Shows a defect of the program to the user; stderr has it already. May be empty.
  std::function<void(const std::string& what)> OnDefect;

 signals:
  // The thread is about to be held: what waits to be shown is to be handed to its widget now.
  void AboutToSleep();

 protected:
  void Defect(const std::string& what) noexcept override;

 private:
  void LeaveWhenQuitting() const;
  void PaintPending();
  void ShowDefect(const std::string& what);

  const Duration longestSleep;
  std::map<Ticker*, std::unique_ptr<QTimer>> timers;
  bool quitting = false;
  bool showingDefect = false;
};

}  // namespace quillmark
