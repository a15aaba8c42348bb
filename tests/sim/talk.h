#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <utility>

#include "sim/line_faults.h"
#include "sim/sim_line.h"
#include "sim/sim_radio.h"
#include "sim/sim_radio_options.h"
#include "sim/sim_time.h"

namespace quillmark::sim {

// A host for tests of the simulated radio: sends on a line, lets time pass, gives what came.
struct Talk {
  explicit Talk(SimRadioOptions options = {}, LineFaults faults = {})
      : radio(std::move(options)), line(radio, std::move(faults)) {}

  std::string Pass(Time time) { return line.Advance(now += time); }
  // Everything that comes within a second, echo included.
  std::string Send(std::string_view bytes, int baud = 19200) {
    line.HostSends(now, bytes, baud);
    return Pass(std::chrono::seconds(1));
  }
  // The reply text to a line, cut out between echo and prompt.
  std::string Ask(std::string_view text) {
    const std::string reply = Send(std::string(text) + "\r");
    const auto start = text.size() + 2;
    const auto end = reply.rfind("\r\n");
    if (!reply.starts_with(text) || !reply.ends_with('>') || end < start) {
      return "no reply: " + reply;
    }
    return reply.substr(start, end - start);
  }

  SimRadio radio;
  SimLine line;
  Time now{0};
};

inline SimRadioOptions Master(std::string revision = "3.2.0") {
  SimRadioOptions options;
  options.Mode = 'M';
  options.Revision = std::move(revision);
  return options;
}

inline SimRadioOptions Remote(std::string revision = "3.2.0") {
  SimRadioOptions options;
  options.Revision = std::move(revision);
  return options;
}

}  // namespace quillmark::sim
