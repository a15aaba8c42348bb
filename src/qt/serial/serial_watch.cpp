#include "qt/serial/serial_watch.h"

#include "platform/serial_port.h"

namespace quillmark {

namespace {

// What makes an event. Levels show what lasts until the next look, counters also what is shorter;
// but some drivers do not count their signals.
struct Row {
  int Code;
  unsigned LineCounts::*Count;
  bool LineLevels::*Level = nullptr;
  bool OnlyRising = false;  // a level that goes off says nothing
};

constexpr Row rows[] = {
    {.Code = comm::Break, .Count = &LineCounts::Break},
    {.Code = comm::FramingError, .Count = &LineCounts::Framing},
    {.Code = comm::OverrunError, .Count = &LineCounts::Overrun},
    {.Code = comm::ReceiveBufferOverflow, .Count = &LineCounts::BufferOverflow},
    {.Code = comm::ParityError, .Count = &LineCounts::Parity},
    {.Code = comm::CtsChange, .Count = &LineCounts::Cts, .Level = &LineLevels::Cts},
    {.Code = comm::DsrChange, .Count = &LineCounts::Dsr, .Level = &LineLevels::Dsr},
    {.Code = comm::CarrierChange, .Count = &LineCounts::Carrier, .Level = &LineLevels::Carrier},
    {.Code = comm::Ring,
     .Count = &LineCounts::Ring,
     .Level = &LineLevels::Ring,
     .OnlyRising = true},
};

bool Counted(const Row& row, const std::optional<LineCounts>& before,
             const std::optional<LineCounts>& now) {
  return before && now && *before.*row.Count != *now.*row.Count;
}

bool Switched(const Row& row, const std::optional<LineLevels>& before,
              const std::optional<LineLevels>& now) {
  if (!before || !now || row.Level == nullptr) return false;
  const bool is = *now.*row.Level;
  return *before.*row.Level != is && (is || !row.OnlyRising);
}

}  // namespace

LineWatch::LineWatch(std::shared_ptr<const LineStatusSource> itsSource)
    : source(std::move(itsSource)) {}

void LineWatch::Start(int openHandle) {
  handle = openHandle;
  settling = true;
  last = Ask(true, true);
}

std::vector<int> LineWatch::Look() {
  const Told before = last;
  last = Ask(before.Counts.has_value(), before.Levels.has_value());
  std::vector<int> codes;
  if (settling) {
    settling = false;
    return codes;
  }
  for (const Row& row : rows) {
    if (Counted(row, before.Counts, last.Counts) || Switched(row, before.Levels, last.Levels)) {
      codes.push_back(row.Code);
    }
  }
  return codes;
}

LineWatch::Told LineWatch::Ask(bool counts, bool levels) const {
  Told told;
  if (counts) told.Counts = source->Counts(handle);
  if (levels) told.Levels = source->Levels(handle);
  return told;
}

}  // namespace quillmark
