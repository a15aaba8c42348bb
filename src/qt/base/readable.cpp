#include "qt/base/readable.h"

#include <poll.h>

#include <QSocketNotifier>

namespace quillmark {

Readable::Readable(int handle)
    : descriptor(handle),
      notifier(std::make_unique<QSocketNotifier>(handle, QSocketNotifier::Read)) {}

Readable::~Readable() = default;

bool Readable::Now() const {
  pollfd ready{descriptor, POLLIN, 0};
  return poll(&ready, 1, 0) > 0;
}

}  // namespace quillmark
