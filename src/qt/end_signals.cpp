#include "qt/end_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <csignal>

namespace quillmark {

namespace {

int pipeEnd = -1;

// A signal handler may do little more than this.
void Tell(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = write(pipeEnd, &byte, 1);
}

void Handle(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> ended) {
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  pipeEnd = ends[1];
  auto* notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, ended = std::move(ended)] {
    char bytes[16];
    if (read(ends[0], bytes, sizeof bytes) > 0) ended();
  });
  Handle(Tell);
}

EndSignals::~EndSignals() {
  Handle(SIG_DFL);
  for (const int end : ends) {
    if (end >= 0) close(end);
  }
}

}  // namespace quillmark
