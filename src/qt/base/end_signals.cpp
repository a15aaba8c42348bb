#include "qt/base/end_signals.h"

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

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

// A user who started the program with "nohup" wants it to go on.
bool Ignored(int signal) {
  struct sigaction before {};
  return sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN;
}

void HandleAll(void (*handler)(int)) {
  Handle(SIGINT, handler);
  Handle(SIGTERM, handler);
  if (!Ignored(SIGHUP)) Handle(SIGHUP, handler);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> ended) {
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  pipeEnd = ends[1];
  auto* notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, ended = std::move(ended)] {
    // One at a time: a second signal must be read while the first one is still handled.
    char byte = 0;
    if (read(ends[0], &byte, 1) > 0) ended();
  });
  HandleAll(Tell);
  Handle(SIGPIPE, SIG_IGN);
}

EndSignals::~EndSignals() {
  HandleAll(SIG_DFL);
  Handle(SIGPIPE, SIG_DFL);
  for (const int end : ends) {
    if (end >= 0) close(end);
  }
}

}  // namespace quillmark
