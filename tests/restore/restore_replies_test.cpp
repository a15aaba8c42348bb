#include "restore_bench.h"

namespace quillmark {
namespace {

// What comes late, damaged, or otherwise than it should.
class RestoreReplies : public RestoreBench {};

// Each row shows its own value, and all the window's work is done.
TEST_F(RestoreReplies, SlowAndLateReplies) {
  const struct {
    int ThinkMs, LateMs;
    bool Overlaps;
  } cases[] = {{5, 0, false},   {40, 0, true},   {120, 0, true},  {170, 0, true},
               {60, 0, false},  {170, 0, false}, {400, 0, false}, {5, 300, false},
               {5, 560, false}, {5, 1200, false}};
  std::string whole;
  for (const auto& each : cases) {
    SCOPED_TRACE(std::to_string(each.ThinkMs) + ", late " + std::to_string(each.LateMs));
    StartOdd({.Mode = 'M', .ThinkTime = Milliseconds(each.ThinkMs), .Overlaps = each.Overlaps});
    InWindow([&] {
      if (whole.empty()) whole = RowTexts(true);
      EXPECT_EQ(RowTexts(true), whole);
      for (int at = 1; each.LateMs > 0 && at <= 33; ++at) {
        SCOPED_TRACE(at);
        Faults().LateReplyAt = Radio().CommandCount() + at;
        Faults().LateReplyMs = each.LateMs;
        EXPECT_EQ(ReadAnew(), whole);
      }
      LoadText("PWR 22\nADDR 99\n");
      ASSERT_TRUE(Click("CheckAllButton"));
      ASSERT_TRUE(Click("tbr_ProgramRadio"));
      ASSERT_TRUE(WaitForRead());
      EXPECT_EQ(Current(SettingId::NetworkAddress), "ADDR 99");
      EXPECT_NE(Save().find("PWR 22 dBm"), std::string::npos);
    });
    EndSession();
  }
}

// The places in a read that belong to the reply to a word: around the value, and within it if
// asked.
std::vector<std::size_t> PlacesOf(const std::string& word, const std::string& read, bool within) {
  const std::size_t start = read.find("\r\n>" + word + "\r\n");
  const std::size_t value = start + word.size() + 5;
  const std::size_t valueEnd = read.find("\r\n>", value);
  std::vector<std::size_t> places;
  for (std::size_t at = start; at < valueEnd + 3; ++at) {
    if (within || at < value || at >= valueEnd) places.push_back(at);
  }
  return places;
}

// One byte of a reply is lost, comes as another one, or comes twice: around the value, and within
// one whose length is known.
TEST_F(RestoreReplies, NoDamagedByteShiftsAValue) {
  using F = sim::LineFaults;
  StartOdd({.Mode = 'M'});
  InWindow([&] {
    const std::size_t begin = Received().size();
    const std::string whole = ReadAnew();
    const std::string clean = Received().substr(begin);
    std::size_t counted = Received().size();
    for (const auto& [fault, more] :
         {std::pair{&F::DropToHost, 0U}, {&F::GarbleToHost, 1U}, {&F::DoubleToHost, 2U}}) {
      for (const std::string word : {"unit", "own", "mode", "amask", "dlink"}) {
        // What is longer or shorter than it can be is told apart within the value too.
        const bool told = (word == "mode" || word == "amask") && more != 1;
        for (const std::size_t at : PlacesOf(word, clean, told)) {
          SCOPED_TRACE(word + " " + std::to_string(at) + " " + std::to_string(more));
          const std::size_t before = Received().size();
          Faults().*fault = static_cast<std::int64_t>(counted + at + 1);
          EXPECT_EQ(ReadAnew(), whole);
          counted += Received().size() - before + 1 - more;
        }
      }
      Faults() = {};
    }
  });
}

// Its echo is off, it is in setup mode, it has left it, and nobody knows.
TEST_F(RestoreReplies, ARadioInAnotherState) {
  StartOdd({.Mode = 'M'});
  InWindow([&] {
    const std::string whole = RowTexts(true);
    for (const std::string word : {"deco", "setup", "QUIT"}) {
      SCOPED_TRACE(word);
      SecondPort().Output(word + "\r");
      EXPECT_EQ(ReadAnew(), whole);
      EXPECT_TRUE(Radio().Echo());
      EXPECT_EQ(Shared().InSetupMode, word == "setup");
    }
  });
}

TEST_F(RestoreReplies, RepliesThatTellSomethingElse) {
  const struct {
    const char *Word, *Reply, *Shown;
    bool Prompt = true;
  } cases[] = {
      {"cts", "\r\nCTS >5\r\n", "CTS >5"},
      {"rxd", "\r\n\r\n", ""},
      {"repeat", "\r\nREPEAT PROGRAMMABLE ONLY AT MASTER\r\n", "MASTER ONLY"},
      {"pwr", "\r\nPWR 21", "n/a", false},
      {"baud", "\r\nINVALID COMMAND\r\n", "n/a"},
      {"xaddr", "\r\nINVALID ENTRY\r\n", "n/a"},
      {"fec", "\r\nACCESS DENIED\r\n", "n/a"},
      {"owm", "\r\nowm\r\nBench radio\r\n", "n/a"},
      {"own", "\r\nHill\r\nUNIT 5\r\n", "n/a"},
      {"ser", "\r\nINVALID COMMAND\r\n", ""},
  };
  StartConnected({.Mode = 'M'});
  for (const auto& each : cases) Radio().SetReply(each.Word, each.Reply, each.Prompt);
  InWindow([&] {
    const std::string shown = RowTexts(true);
    for (const auto& each : cases) {
      const std::string row = std::string(each.Word) + "=" + each.Shown + "\n";
      EXPECT_EQ(shown.find(row) != std::string::npos, row != "ser=\n") << row;
    }
    EXPECT_EQ(Save().find("INVALID"), std::string::npos);
    // A radio that tells nothing: the file of before stays.
    for (const RestoreRow& row : RestoreRows()) Radio().SetReply(row.Word, "\r\nINVALID ENTRY\r\n");
    After(Seconds(1), [&] { EXPECT_TRUE(Click("tbr_SaveConfig")); });
    ReadAnew();
    EXPECT_EQ(Text("Label2"), "Current Settings:\rnone came, so none can be saved");
    EXPECT_FALSE(Click("tbr_SaveConfig"));
    Radio().SetReply("unit", "\r\nUNIT 1000\r\n");
    ReadAnew();
    EXPECT_EQ(Text("Label2"), "Current Settings:");
    EXPECT_TRUE(Enabled("tbr_SaveConfig"));
  });
}

TEST_F(RestoreReplies, NamesThatBeginWithAPrompt) {
  StartConnected();
  InWindow([&] {
    for (const char* name : {">x", "> hello", ">>> N", "SETUP> y", "Hill >"}) {
      Radio().Program("own", name);
      ReadAnew();
      EXPECT_EQ(Current(SettingId::OwnerName), name);
    }
  });
}

}  // namespace
}  // namespace quillmark
