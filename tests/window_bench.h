#pragma once

#include "sim/bench.h"

namespace quillmark {

// A session with windows that hold the main one.
class WindowBench : public sim::Bench {
 public:
  // Opens a window by a click, does the acts in it, and gives what went out meanwhile.
  std::string InWindow(const std::string& click, const std::string& window,
                       std::function<void()> acts) {
    ClearLog();
    ExpectWindow(window).Do(std::move(acts));
    EXPECT_TRUE(Click(click));
    CheckExpectations();
    return Sent();
  }
};

}  // namespace quillmark
