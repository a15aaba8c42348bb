#include "qt/serial/serial_gathering.h"

#include <algorithm>

namespace quillmark {

namespace {

constexpr qint64 shortest = 8000;  // microseconds
constexpr qint64 longest = 30'000;
constexpr unsigned long shortNap = 3000;  // microseconds
constexpr unsigned long longNap = 5000;
constexpr qint64 shortReply = 30'000;  // microseconds from its first byte to its last
constexpr qint64 share = 4;            // gathered of the time behind that: a fourth
constexpr qint64 streamGap = 20;       // ms without a byte, which end a reply

}  // namespace

GatheringTime::Span GatheringTime::NoteArrival() {
  if (!stream.isValid() || lastArrival.hasExpired(streamGap)) stream.start();
  lastArrival.start();
  const qint64 limit =
      std::clamp((stream.nsecsElapsed() / 1000 - shortReply) / share, shortest, longest);
  return {limit, limit == shortest ? shortNap : longNap};
}

}  // namespace quillmark
