#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/bounds.h"

namespace quillmark {

// What a radio will not take of a configuration file, told before anything is sent.

// A line that a radio refuses.
struct JudgedLine {
  std::size_t Number;  // from 1
  Verdict What;

  // "line 14: PWR 45, radios take 20 to 30 dBm"
  std::string Sentence() const;
};

// Judges the lines in the order in which they are sent. `modeText` is the radio's mode before the
// first one; a line that sets the mode changes it for those behind. A line of no setting is not
// judged, nor is a word without a value, which only asks the radio.
std::vector<JudgedLine> JudgeLines(const std::vector<std::string>& lines, const Revision& revision,
                                   std::string_view modeText = {});

}  // namespace quillmark
