#include <gtest/gtest-spi.h>

#include <iterator>
#include <string>

#include "config/direct_run.h"
#include "config/saved_settings.h"
#include "conversation/reply.h"
#include "diagnostics/zone_replies.h"
#include "fuzz/fuzz_target.h"
#include "sim/bench.h"

namespace quillmark::fuzz {

namespace {

constexpr std::string_view words[] = {"pwr", "own", "show sync", "srev"};

// A bench outside of a test.
class IdleBench : public sim::Bench {
  void TestBody() override {}
};

}  // namespace

// The first byte picks the word, the echo and the prompts of earlier lines.
void FeedReply(std::string_view input) {
  const auto pick = input.empty() ? 0U : static_cast<unsigned char>(input.front());
  const std::string_view received = input.substr(input.empty() ? 0 : 1);
  const Reply reply = FindReply(received, {.Command = words[pick % 4],
                                           .Echo = (pick & 4) == 0,
                                           .EarlierPrompts = static_cast<int>(pick / 8 % 4)});
  const bool whole = reply.Came == Reply::State::Whole;
  Check(whole || reply.Text.empty(), "a text comes from a whole reply only");
  Check(!whole || reply.Prompt != PromptKind::None, "a whole reply has a prompt");
  Check(received.find(reply.Text) != std::string_view::npos, "a text was received");
  const auto value = ValueOf(reply);
  Check(!value || reply.Text.starts_with(*value), "a value is the head of a text");
  Check(PromptAtEnd(received) == PromptKind::None || received.ends_with('>'), "prompts end in >");
}

void FeedSavedSetting(std::string_view input) {
  const std::string reply(input);
  for (const Setting* row : SavedOrder(AllSettings())) {
    try {
      CutSetting(*row, reply);
    } catch (const RunFailed&) {
      continue;
    }
  }
}

void FeedZones(std::string_view input) {
  if (const auto zones = SkippedZones(input)) {
    for (const std::size_t zone : *zones) Check(zone >= 1 && zone <= ZoneCount, "a zone is 1 to 8");
  }
  ZoneDataIsComplete(input);
  static constexpr std::string_view fields[] = {"TX", "RX", "ERR"};
  ReadZoneCounters(input, fields, [](std::size_t zone, std::size_t field, auto) {
    Check(zone < ZoneCount && field < std::size(fields), "a counter has its place");
  });
}

// What the radio says without being asked, through port, terminal and read cycle.
void FeedReceived(std::string_view input) {
  static ::testing::TestPartResultArray results;
  static ::testing::ScopedFakeTestPartResultReporter reporter(
      ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ALL_THREADS, &results);
  static IdleBench bench;
  static const bool started = [] {
    bench.TolerateBoxes();
    bench.StartConnected({.Paced = false});
    return true;
  }();
  Check(started, "the console has started");
  bench.Radio().Unsolicited(bench.Now(), input);
  bench.Run(Milliseconds(1));
  bench.ClearLog();
  Check(results.size() == 0, "no handler throws");
}

}  // namespace quillmark::fuzz
