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

// A line that sets a setting, and what is wrong with it.
struct SentLine {
  std::size_t Number;  // from 1
  std::string Text;
  const Setting* Sets;  // lives for the whole run
  Verdict What;
};

// The lines that set something, in the order in which they are sent. `modeText` is the radio's mode
// before the first one; a line that sets the mode changes it for those behind. A line of no setting
// is not among them, nor is a word without a value, which only asks the radio.
std::vector<SentLine> SentLines(const std::vector<std::string>& lines, const Revision& revision,
                                std::string_view modeText);

// Those of them that a radio refuses.
std::vector<JudgedLine> JudgeLines(const std::vector<std::string>& lines, const Revision& revision,
                                   std::string_view modeText = {});

}  // namespace quillmark
