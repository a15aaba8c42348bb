#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "qt/serial/serial_status.h"

namespace quillmark {

// Compares what the driver tells of the line with what it told at the look before, and gives the
// codes of the comm events in between. SerialWorker owns one and looks a few times a second; it has
// no clock and no thread of its own.
class LineWatch {
 public:
  explicit LineWatch(std::shared_ptr<const LineStatusSource> source);

  // The port was opened, or its rate was changed. Nothing that happens before the next look counts
  // as an event: the other end answers our own signals, and the line's noise is of our own making.
  void Start(int handle);
  // Whether another look can bring anything. A question that failed is not asked again before the
  // next start.
  bool Tells() const { return last.Counts || last.Levels; }
  // Each code once, however often it happened since the look before; errors first.
  std::vector<int> Look();

 private:
  // What the driver told at one look.
  struct Told {
    std::optional<LineCounts> Counts;
    std::optional<LineLevels> Levels;
  };

  Told Ask(bool counts, bool levels) const;

  std::shared_ptr<const LineStatusSource> source;
  int handle = -1;
  bool settling = false;  // until the first look
  Told last;
};

}  // namespace quillmark
