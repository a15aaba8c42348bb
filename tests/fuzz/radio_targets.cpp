#include <gtest/gtest-spi.h>

#include <string>

#include "config/direct_run.h"
#include "config/saved_settings.h"
#include "diagnostics/zone_replies.h"
#include "fuzz/fuzz_target.h"
#include "radio/reply.h"
#include "restore/restore_link.h"
#include "sim/bench.h"

namespace quillmark::fuzz {

namespace {

constexpr std::string_view words[] = {"pwr", "own", "show sync", "srev"};

// The first byte picks the mode and the word.
struct Question {
  explicit Question(std::string_view input)
      : InSetupMode(!input.empty() && input.front() % 2 != 0),
        Word(words[input.empty() ? 0 : static_cast<unsigned char>(input.front()) / 2 % 4]),
        Received(input.substr(input.empty() ? 0 : 1)) {}

  bool InSetupMode;
  std::string_view Word;
  std::string_view Received;
};

class IdleBench : public sim::Bench {
  void TestBody() override {}
};

}  // namespace

void FeedReply(std::string_view input) {
  const Question asked(input);
  const auto value = CutReply(asked.Received, asked.Word, asked.InSetupMode);
  const bool whole = HasReply(asked.Received, asked.Word, asked.InSetupMode);
  Check(!value || whole, "a value comes from a whole reply only");
  Check(!value || asked.Received.find(*value) != std::string_view::npos, "a value was received");
  Check(whole == (CountPrompts(asked.Received, asked.Word, asked.InSetupMode) > 0),
        "a whole reply has a prompt");
}

void FeedRestoreReply(std::string_view input) {
  const Question asked(input);
  const auto value = CutRestoreReply(asked.Received, asked.Word, asked.InSetupMode);
  Check(!value || asked.Received.find(*value) != std::string_view::npos, "a value was received");
}

void FeedSavedSetting(std::string_view input) {
  const std::string reply(input);
  for (const SavedSetting& row : SavedSettings()) {
    try {
      CutSetting(row, reply);
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
