#include "processor_time.h"

#include <sys/resource.h>

#include <chrono>

namespace quillmark::bench {

namespace {

Duration AsDuration(const timeval& time) {
  return Seconds(static_cast<double>(time.tv_sec)) + Duration(time.tv_usec);
}

}  // namespace

Moment Now() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  const auto wall = std::chrono::steady_clock::now().time_since_epoch();
  return {std::chrono::duration_cast<Duration>(wall),
          AsDuration(used.ru_utime) + AsDuration(used.ru_stime)};
}

double RateBetween(const Moment& begin, const Moment& end) {
  const auto processor = static_cast<double>((end.Processor - begin.Processor).count());
  return processor / 1000 / SecondsBetween(begin, end);
}

double SecondsBetween(const Moment& begin, const Moment& end) {
  return static_cast<double>((end.Wall - begin.Wall).count()) / 1e6;
}

}  // namespace quillmark::bench
