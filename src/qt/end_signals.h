#pragma once

#include <QObject>
#include <array>
#include <functional>

namespace quillmark {

// SIGINT and SIGTERM as an event: `ended` is called from the event loop for each. One at most in a
// program.
class EndSignals : public QObject {
 public:
  explicit EndSignals(std::function<void()> ended);
  ~EndSignals() override;

 private:
  std::array<int, 2> ends{-1, -1};  // of the pipe that the handler writes to
};

}  // namespace quillmark
