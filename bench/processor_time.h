#pragma once

#include "platform/event_loop.h"

namespace quillmark::bench {

// A moment of this process: the monotonic time, and the processor time that all its threads have
// used so far, kernel time included. Child processes do not count.
struct Moment {
  Duration Wall{};
  Duration Processor{};
};

Moment Now();

// Processor time between two moments, in ms for each second that passed.
double RateBetween(const Moment& begin, const Moment& end);
// The same in percent of a core.
inline double ShareBetween(const Moment& begin, const Moment& end) {
  return RateBetween(begin, end) / 10;
}
double SecondsBetween(const Moment& begin, const Moment& end);

}  // namespace quillmark::bench
