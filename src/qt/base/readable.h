#pragma once

#include <memory>

class QSocketNotifier;

namespace quillmark {

// Ends the event loop's wait when a file descriptor can be read, so that the program can wait for a
// person or another program without holding the loop.
class Readable {
 public:
  explicit Readable(int descriptor);
  ~Readable();

  // Whether a read would not block now.
  bool Now() const;

 private:
  int descriptor;
  std::unique_ptr<QSocketNotifier> notifier;
};

}  // namespace quillmark
