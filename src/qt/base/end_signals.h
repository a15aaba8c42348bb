#pragma once

#include <QObject>
#include <array>
#include <functional>

namespace quillmark {

// SIGINT, SIGTERM and SIGHUP (the session is over) as an event: `ended` is called from the event
// loop for each. A SIGHUP that was ignored before stays so. While it lives, a reader that goes away
// ends nothing: SIGPIPE is ignored. One at most in a program.
class EndSignals : public QObject {
 public:
  explicit EndSignals(std::function<void()> ended);
  ~EndSignals() override;

 private:
  std::array<int, 2> ends{-1, -1};  // of the pipe that the handler writes to
};

}  // namespace quillmark
