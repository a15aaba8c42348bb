#pragma once

#include <optional>
#include <string>
#include <utility>

#include "sim/sim_time.h"

namespace quillmark::sim {

// What the simulated radio or its loader has to say to one line, before it goes on the wire.
struct RadioAnswer {
  // What happens to the radio once the answer has been given.
  enum class Next { Stay, EnterLoader, StartFirmware };

  std::optional<std::string> Text;  // nothing: only the prompt follows
  bool Prompt = true;
  Time Busy{0};  // works that long first and hears nothing meanwhile
  Next Then = Next::Stay;
};

inline RadioAnswer Says(std::string text) { return {.Text = std::move(text)}; }
inline RadioAnswer PromptOnly() { return {}; }

}  // namespace quillmark::sim
