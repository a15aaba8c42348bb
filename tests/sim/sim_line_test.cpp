#include "sim/sim_line.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "talk.h"

namespace quillmark::sim {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

TEST(SimLine, PacesBothDirectionsAtTenBitsAByte) {
  Talk talk;
  talk.line.HostSends(Time(1000), "ser\r", 19200);
  EXPECT_EQ(talk.line.HostDrained(), Time(1000 + 2083));
  EXPECT_EQ(talk.line.HostBytesPending(Time(1000)), 4U);
  EXPECT_EQ(talk.line.HostBytesPending(Time(1000 + 1041)), 2U);
  talk.line.Advance(std::chrono::seconds(1));
  EXPECT_EQ(talk.line.HostDrained(), std::nullopt);
  // Each echo leaves as its character arrives; the reply starts 5 ms behind the carriage return.
  EXPECT_EQ(talk.line.Log().Received(), "ser\r\nSN 00123456\r\n>");
  const std::vector<Time>& times = talk.line.Log().ToHost().Times;
  EXPECT_THAT(std::vector<Time>(times.begin(), times.begin() + 4),
              ElementsAre(Time(2040), Time(2561), Time(3082), Time(3083 + 520)));
  EXPECT_EQ(times.back(), Time(3083 + 5000 + 14 * 10'000'000 / 19200));
}

TEST(SimLine, HandlesOneLineAfterTheOther) {
  const Time slow = milliseconds(100);
  const struct {
    SimRadioOptions options;
    std::string sent;
    std::string received;
    int last;  // ms
  } cases[] = {
      {{.ThinkTime = slow}, "mode\rpwr\r", "mode\r\npwr\r\nMODE R\r\n>PWR 30 dBm\r\n>", 209},
      {{.ThinkTime = slow, .EchoesInTurn = true},
       "mode\rpwr\r",
       "mode\r\nMODE R\r\n>pwr\r\nPWR 30 dBm\r\n>",
       209},
      {{.ThinkTime = slow, .Overlaps = true},
       "mode\rpwr\r",
       "mode\r\nMODE R\r\n>pwr\r\nPWR 30 dBm\r\n>",
       117},
      {{.ThinkTime = slow, .ActsLate = true},
       "deco\rmode\reeco\r",
       "deco\r\nmode\r\neeco\r\n>MODE R\r\n>>",
       303},
      // What waits is lost when the radio starts anew.
      {{.ThinkTime = slow, .Loader = {.EnterTime = Time(0)}},
       "PROGRAM\rYES\rmode\r",
       "PROGRAM\r\nYES\r\nmode\r\nARE YOU SURE?\r\n>ERASING\r\n\r\nLOADER>",
       213},
  };
  for (const auto& c : cases) {
    Talk talk(c.options);
    talk.line.HostSends(Time(0), c.sent, 19200);
    EXPECT_EQ(talk.Pass(std::chrono::seconds(9)), c.received);
    EXPECT_EQ(talk.line.Log().ToHost().Times.back() / milliseconds(1), c.last) << c.received;
  }
}

TEST(SimLine, FillsASmallBufferWhileTheRadioThinks) {
  Talk talk({.ThinkTime = milliseconds(400)});
  std::string pasted = "mode\r";
  for (int i = 0; i < 100; ++i) pasted += "srev\r";
  talk.line.HostSends(Time(0), pasted, 19200);
  talk.Pass(std::chrono::seconds(60));
  EXPECT_EQ(talk.radio.LostBytes(), 500 - 256);
  EXPECT_EQ(talk.radio.CommandCount(), 1 + 256 / 5);
  EXPECT_EQ(talk.Send("\x1bmode\r"), "mode\r\nMODE R\r\n>");
}

LineFaults With(std::initializer_list<std::pair<std::int64_t LineFaults::*, std::int64_t>> set) {
  LineFaults faults;
  for (const auto& [field, value] : set) faults.*field = value;
  return faults;
}

// What comes back for "mode" and "pwr", one after the other.
TEST(SimLine, PlaysItsFaults) {
  const std::string mode = "mode\r\nMODE R\r\n>";
  const std::string pwr = "pwr\r\nPWR 30 dBm\r\n>";
  using F = LineFaults;
  const struct {
    std::string name;
    LineFaults faults;
    std::string first;
    std::string second;
  } cases[] = {
      {"none", {}, mode, pwr},
      {"dead", With({{&F::SilentFrom, 1}}), "", ""},
      {"silent", With({{&F::SilentFrom, 1}, {&F::SilentUntil, 1}}), "", pwr},
      {"drop to host", With({{&F::DropToHost, 2}}), "mde\r\nMODE R\r\n>", pwr},
      {"garble to host", With({{&F::GarbleToHost, 15}}), "mode\r\nMODE R\r\nk", pwr},
      {"double to host", With({{&F::DoubleToHost, 1}}), "mmode\r\nMODE R\r\n>", pwr},
      {"drop to radio", With({{&F::DropToRadio, 5}}), "mode", "pwr\r\nINVALID COMMAND\r\n>"},
      {"garble to radio", With({{&F::GarbleToRadio, 1}}), "8ode\r\nINVALID COMMAND\r\n>", pwr},
      {"double to radio", With({{&F::DoubleToRadio, 5}}), "mode\r\n\r\nMODE R\r\n>>", pwr},
      {"late", With({{&F::LateReplyAt, 2}, {&F::LateReplyMs, 2000}}), mode, "pwr\r\n"},
      {"no prompt", With({{&F::NoPromptAt, 1}}), "mode\r\nMODE R\r\n", pwr},
      {"extra", With({{&F::ExtraBytesAt, 2}}), mode, "pwr\r\n\x1b?PWR 30 dBm\r\n>"},
      {"twice", With({{&F::DoubleReplyAt, 1}}), mode + "\r\nMODE R\r\n>", pwr},
      {"hang up to host", With({{&F::HangUpAtByteToHost, 6}}), "mode\r\n", ""},
      {"hang up to radio", With({{&F::HangUpAtByteToRadio, 2}}), "m", ""},
      {"hang up at command", With({{&F::HangUpAtCommand, 2}}), mode, "pwr"},
      {"hang up in time", With({{&F::HangUpAtMs, 500}}), mode, ""},
  };
  for (const auto& c : cases) {
    Talk talk(Remote(), c.faults);
    EXPECT_EQ(talk.Send("mode\r"), c.first) << c.name;
    EXPECT_EQ(talk.Send("pwr\r"), c.second) << c.name;
    EXPECT_EQ(talk.line.HungUp(), c.name.starts_with("hang up")) << c.name;
    EXPECT_EQ(talk.line.Log().Received(), c.first + c.second) << c.name;
    talk.line.Restore();
    talk.Pass(milliseconds(2000));
    talk.line.Faults() = {};
    talk.Send("\x1b\r");
    EXPECT_EQ(talk.Ask("mode"), "MODE R") << c.name;
  }
}

TEST(SimLine, BabblesFromTheMomentItIsToldTo) {
  Talk talk;
  talk.Pass(std::chrono::seconds(100));
  talk.line.Faults().BabblePerSecond = 1000;
  const std::string babble = talk.Pass(std::chrono::seconds(1));
  EXPECT_EQ(babble.size(), 1000U);
  talk.line.Faults().BabblePerSecond = 0;
  EXPECT_EQ(talk.Pass(std::chrono::seconds(1)), "");
}

}  // namespace
}  // namespace quillmark::sim
