#include "sim/bench.h"

#include <gtest/gtest-spi.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/timer.h"

namespace quillmark {
namespace {

class BenchTest : public sim::Bench {};

TEST_F(BenchTest, ABoxThatNobodyExpectedFailsWithItsText) {
  Start();
  Sockets().Unplug(1);
  EXPECT_NONFATAL_FAILURE(Click("tbr_Connect"), "The selected COM port is not available");
  ExpectBox("Error").Containing("no such words");
  EXPECT_NONFATAL_FAILURE(Click("tbr_Connect"), "Nobody expected the box \"Error\"");
  EXPECT_NONFATAL_FAILURE(CheckExpectations(), "There never came the box \"Error\" containing");
  ExpectBox("Error").Reply(Answer::Yes);
  EXPECT_NONFATAL_FAILURE(Click("tbr_Connect"), "is a button that it lacks");
  EXPECT_NONFATAL_FAILURE(Click("tbr_Properties"), "Nobody expected the window \"frmProperties\"");
  EXPECT_THROW(Find("cmdNothing"), std::invalid_argument);
}

// A window with a timer on the virtual loop.
struct TimerWindow : Form {
  explicit TimerWindow(EventLoop& events)
      : Form("frmTimers"), Ticks(*this, "Ticks", events, 100, true) {}
  Timer Ticks;
};

TEST(VirtualLoop, TimersKeepTheirPaceAndNeverTickInsideThemselves) {
  sim::VirtualLoop loop;
  const auto window = std::make_shared<TimerWindow>(loop);
  std::vector<std::int64_t> at;
  window->Ticks.OnTick = [&] {
    at.push_back(loop.Now().count() / 1000);
    // The second one takes 250 ms, pumping: two ticks are missed and not made up.
    if (at.size() == 2) WaitUntil(loop, Milliseconds(250), [] { return false; });
    window->Ticks.Enabled = true;  // changes nothing
    if (at.size() == 4) window->Ticks.Interval = 30;
    if (at.size() == 6) window->Unload();
  };
  while (loop.Now() < Seconds(1)) loop.Wait(Seconds(1) - loop.Now());
  EXPECT_EQ(at, (std::vector<std::int64_t>{100, 200, 500, 600, 630, 660}));
}

TEST(Controls, AnActHoldsItsWindowUntilItsHandlerHasReturned) {
  struct Window : Form {
    Window()
        : Form("frmOnce"),
          cmdClose(*this, this, "cmdClose", "Close"),
          inner(*this, this, "inner") {}
    Button cmdClose;
    Frame inner;
  };
  auto window = std::make_shared<Window>();
  std::string read;
  window->cmdClose.OnClick = [&] {
    Button& button = window->cmdClose;
    window->Unload();
    window.reset();
    read = button.Text();
  };
  Window& alive = *window;
  alive.inner.Enabled = false;
  Button within(alive, &alive.inner, "within");
  EXPECT_FALSE(within.Click());
  EXPECT_TRUE(alive.cmdClose.Click());
  EXPECT_EQ(read, "Close");
  EXPECT_EQ(window, nullptr);
}

}  // namespace
}  // namespace quillmark
