#include "qt/serial/serial_watch.h"

#include <gmock/gmock.h>

#include <functional>
#include <mutex>

#include "e2e/pty_pair.h"
#include "qt/base/qt_event_loop.h"
#include "qt/serial/qt_serial_port.h"

namespace quillmark {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A driver whose line is in the test's hand; the port asks it from a thread of its own.
class PlayedDriver : public LineStatusSource {
 public:
  std::optional<LineCounts> Counts(int) const override {
    const std::lock_guard lock(mutex);
    ++asked;
    return counts;
  }
  std::optional<LineLevels> Levels(int) const override {
    const std::lock_guard lock(mutex);
    ++asked;
    return levels;
  }
  void Play(const std::function<void(PlayedDriver&)>& happens) {
    const std::lock_guard lock(mutex);
    happens(*this);
  }
  int Asked() const {
    const std::lock_guard lock(mutex);
    return asked;
  }

  std::optional<LineCounts> counts = LineCounts{.Cts = 4, .Break = 7, .Framing = 9};
  std::optional<LineLevels> levels = LineLevels{.Cts = true, .Carrier = true, .Ring = true};

 private:
  mutable std::mutex mutex;
  mutable int asked = 0;
};

TEST(LineWatch, EachCountAndLevelHasItsCode) {
  const struct {
    std::vector<int> Codes;
    std::function<void(LineCounts&, LineLevels&)> Happens;
  } cases[] = {
      {{1001}, [](auto& count, auto&) { count.Break += 1; }},
      {{1004}, [](auto& count, auto&) { count.Framing += 300; }},
      {{1006}, [](auto& count, auto&) { count.Overrun -= 1; }},  // they wrap
      {{1008}, [](auto& count, auto&) { count.BufferOverflow += 1; }},
      {{1009}, [](auto& count, auto&) { count.Parity += 2; }},
      {{3}, [](auto& count, auto&) { count.Cts += 2; }},
      {{5}, [](auto& count, auto&) { count.Carrier += 1; }},
      {{6}, [](auto& count, auto&) { count.Ring += 1; }},
      {{4}, [](auto&, auto& level) { level.Dsr = true; }},
      {{5}, [](auto&, auto& level) { level.Carrier = false; }},
      {{}, [](auto&, auto& level) { level.Ring = false; }},  // the end of a ring
      {{6}, [](auto&, auto& level) { level.Ring = true; }},
      {{3}, [](auto& count, auto& level) { count.Cts += 1, level.Cts = true; }},
      {{1001, 1004, 5},
       [](auto& count, auto&) { count.Carrier += 1, count.Framing += 1, count.Break += 1; }},
  };
  const auto driver = std::make_shared<PlayedDriver>();
  LineWatch watch(driver);
  watch.Start(3);
  // The first look belongs to the opening.
  driver->counts->Framing += 5;
  driver->levels->Cts = false;
  EXPECT_THAT(watch.Look(), IsEmpty());
  driver->levels->Cts = true;
  EXPECT_THAT(watch.Look(), ElementsAre(3));
  for (const auto& c : cases) {
    c.Happens(*driver->counts, *driver->levels);
    EXPECT_EQ(watch.Look(), c.Codes) << &c - cases;
    EXPECT_THAT(watch.Look(), IsEmpty()) << &c - cases;
  }
  // What fails is not asked again, and the other goes on; a new start asks anew.
  driver->counts.reset();
  EXPECT_THAT(watch.Look(), IsEmpty());
  driver->counts = LineCounts{.Parity = 1};
  const int before = driver->Asked();
  driver->levels->Dsr = false;
  EXPECT_THAT(watch.Look(), ElementsAre(4));
  EXPECT_EQ(driver->Asked(), before + 1);
  driver->levels.reset();
  EXPECT_THAT(watch.Look(), IsEmpty());
  EXPECT_FALSE(watch.Tells());
  watch.Start(3);
  EXPECT_TRUE(watch.Tells());
}

class LineEvents : public testing::Test {
 protected:
  void SetUp() override {
    port.OnComm = [this] {
      codes.push_back(port.CommEvent());
      if (meanwhile && comm::IsError(port.CommEvent())) std::exchange(meanwhile, {})();
    };
  }
  void Wait(int ms) {
    WaitUntil(events, Milliseconds(ms), [] { return false; });
  }
  // Until the line has been looked at from now on, and all of it has been told.
  void Settle() {
    const int before = driver->Asked();
    ASSERT_TRUE(WaitUntil(events, Seconds(5), [&] { return driver->Asked() >= before + 4; }));
    Wait(50);
  }
  void Happens(unsigned LineCounts::*count) {
    driver->Play([&](auto& played) { ++(*played.counts.*count); });
  }
  std::vector<int> Codes() {
    Settle();
    return std::exchange(codes, {});
  }

  QtEventLoop events;
  PtyPair line;
  std::shared_ptr<PlayedDriver> driver = std::make_shared<PlayedDriver>();
  QtSerialPort port{events, [this](int) { return line.Path(); }, driver};
  std::function<void()> meanwhile;  // in the handler of the next error
  std::vector<int> codes;
};

TEST_F(LineEvents, ReachTheLogicOnceAndNotFromBeforeAnOpening) {
  port.SetPortOpen(true);
  EXPECT_THAT(Codes(), IsEmpty());
  driver->Play([](auto& played) { played.counts->Parity += 50, played.counts->Cts += 3; });
  EXPECT_THAT(Codes(), ElementsAre(1009, 3));
  // While the logic sleeps it all adds up to one; text is not held up.
  for (int i = 0; i < 3; ++i) {
    Happens(&LineCounts::Framing);
    events.Sleep(Milliseconds(300));
  }
  line.Send("text");
  EXPECT_THAT(Codes(), ElementsAre(1004, comm::Receive));
  EXPECT_EQ(port.Input(), "text");

  // Neither a reopening nor a change of rate is an event.
  port.SetPortOpen(false);
  Happens(&LineCounts::Break);
  port.SetPortOpen(true);
  EXPECT_THAT(Codes(), IsEmpty());
  port.SetSettings("115200,N,8,1");
  Happens(&LineCounts::Framing);
  EXPECT_THAT(Codes(), IsEmpty());
}

TEST_F(LineEvents, WhatHappensBehindABoxDoesNotOpenItAgain) {
  port.SetPortOpen(true);
  Settle();
  meanwhile = [this] {
    for (int i = 0; i < 9; ++i) {
      Happens(&LineCounts::Framing);
      Happens(&LineCounts::Break);
      if (i == 5) Happens(&LineCounts::Dsr);
      Wait(60);
    }
    Happens(&LineCounts::Framing);  // and right before the answer
  };
  Happens(&LineCounts::Break);
  EXPECT_THAT(Codes(), ElementsAre(1001, 4));
  EXPECT_THAT(Codes(), IsEmpty());
}

// As with a pseudo-terminal, whose driver answers neither question.
TEST_F(LineEvents, ADeviceThatTellsNothingIsNotAskedAgain) {
  const int device = open(line.Path().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  EXPECT_FALSE(SystemLineStatus()->Counts(device));
  EXPECT_FALSE(SystemLineStatus()->Levels(device));
  close(device);
  driver->counts.reset();
  driver->levels.reset();
  port.SetPortOpen(true);
  Wait(400);
  port.SetSettings("9600,N,8,1");
  Wait(400);
  EXPECT_THAT(codes, IsEmpty());
  EXPECT_EQ(driver->Asked(), 2);
}

}  // namespace
}  // namespace quillmark
