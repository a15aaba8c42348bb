#include "sim/sim_radio.h"

#include <gmock/gmock.h>

#include <string>

#include "sim/sim_words.h"
#include "talk.h"

namespace quillmark::sim {
namespace {

using testing::ElementsAre;

SimRadioOptions WithoutFeatures() {
  SimRadioOptions options = Master();
  options.LowPower = options.RtuSelected = false;
  return options;
}

SimRadioOptions Lost() {
  SimRadioOptions options = Remote();
  options.Synchronised = false;
  return options;
}

TEST(SimRadio, AnswersInTheShapeOfTheDialect) {
  const struct {
    std::string typed;
    std::string reply;
  } cases[] = {
      {"mode\r", "mode\r\nMODE R\r\n>"},
      {"MoDe\r\n", "MoDe\r\nMODE R\r\n>"},
      {"\r", "\r\n>"},
      {"\x1b\r\n\r\r", "\r\n\r\n\r\n>>>"},
      {"mo\x1b\r", "mo\r\n>"},
      {"modx\be\r", "modx\b \be\r\nMODE R\r\n>"},
      {"CLOS\r", "CLOS\r\nCLOSED\r\n>"},
      {"srev\r", "srev\r\n77-1234A01\r\n3.2.0  01Jan2009\r\n>"},
      {"nonsense\r", "nonsense\r\nINVALID COMMAND\r\n>"},
      {std::string(300, 'x') + "\r", std::string(255, 'x') + "\r\nINVALID COMMAND\r\n>"},
  };
  Talk talk;
  for (const auto& c : cases) EXPECT_EQ(talk.Send(c.typed), c.reply);
}

TEST(SimRadio, ReadsByRevisionModeAndFeatures) {
  const struct {
    SimRadioOptions options;
    std::string typed;
    std::string text;
  } cases[] = {
      {Master(), "sleep", "SLEEP n/a"},
      {Remote(), "csaddr", "n/a"},
      {Remote(), "repeat", "REPEAT 0"},
      {Lost(), "repeat", "REPEAT PROGRAMMABLE ONLY AT MASTER"},
      {Remote(), "hoptime 28", "HOPTIME PROGRAMMABLE ONLY AT MASTER"},
      {WithoutFeatures(), "lpm", "NOT A SELECTED OPTION"},
      {WithoutFeatures(), "rtu", "NOT A SELECTED OPTION"},
      {Remote(), "show sync", "DEPTH 1 UNIT 1000 XADDR 0"},
      {Master(), "show sync", "NOT AVAILABLE"},
      {Remote(), "show pwr", "POWER 30 dBm"},
      {Remote(), "alarm", "00000000 Minor\r\nNo active alarms"},
      {Remote(), "ALARM ACTIVE HI", "INVALID ENTRY"},
      {Master(), "rssi", "RSSI n/a"},
      {Remote(), "rx", "INVALID COMMAND"},
      {Remote("1.9.0"), "xmin", "XMIN 0"},
      {Remote("2.0.0"), "xmin", "INVALID COMMAND"},
      {Remote("1.10.2"), "xpri", "INVALID COMMAND"},
      {Remote("1.9.9"), "xaddr 63", "PROGRAMMED OK"},
      {Remote("2.0.0"), "xaddr 32", "INVALID ENTRY"},
      {Remote("2.9.9"), "rxd", "INVALID COMMAND"},
      {Remote("3.0.0"), "rxd", "RXD 0"},
  };
  for (const auto& c : cases) {
    Talk talk(c.options);
    EXPECT_EQ(talk.Ask(c.typed), c.text) << c.typed << " at " << c.options.Revision;
  }
}

TEST(SimRadio, TakesWhatIsInRangeAndKeepsIt) {
  const struct {
    std::string word;
    std::string value;
    std::string kept;  // "" when it is an invalid entry
  } cases[] = {
      {"unit", "10000", "10000"},
      {"unit", "65001", ""},
      {"pwr", " 20  dBm", "20 dBm"},
      {"pwr", "31", ""},
      {"pwr", "2x", ""},
      {"baud", "9600", "9600 8N1"},
      {"baud", "7e2", "9600 7E2"},
      {"baud", "9600 9N1", ""},
      {"device", "cts  key", "CTS KEY"},
      {"amask", "  0000 00ff", "0000 00FF"},
      {"asense", "MID", ""},
      {"rxtot", "0", ""},
      {"addr", "01000", "1000"},
      {"addr", "65001", ""},
      {"hoptime", "8", ""},
      {"skip", "5 2,1", "1,2,5"},
      {"skip", "1234", "1,2,3,4"},
      {"skip", "1,1,2,2,3", ""},
      {"xmap", "f", "0000000F"},
      {"xrssi", "90", ""},
      {"dlink", "off", "19200 (OFF)"},
      {"dlink", "9600 (ON)", "9600 (ON)"},
      {"rtu", "81", ""},
      {"rtu", "ON 5", ""},
      {"own", std::string(31, 'o'), ""},
  };
  Talk talk(Master());
  for (const auto& c : cases) {
    const std::string before = talk.radio.Setting(c.word);
    const std::string expected = c.kept.empty() ? "INVALID ENTRY" : "PROGRAMMED OK";
    EXPECT_EQ(talk.Ask(c.word + " " + c.value), expected) << c.word << " " << c.value;
    EXPECT_EQ(talk.radio.Setting(c.word), c.kept.empty() ? before : c.kept);
  }
}

TEST(SimRadio, ShowsNoSecretInALog) {
  EXPECT_EQ(SimRadioCommands::Masked("pass abcd"), "pass ****");
  EXPECT_EQ(SimRadioCommands::Masked("K7M2 abcd"), "k7m2 ****");
  EXPECT_EQ(SimRadioCommands::Masked("psas abcd"), "(unknown, 9 characters)");
  EXPECT_EQ(SimRadioCommands::Masked("ADDR 1000"), "ADDR 1000");
}

TEST(SimRadio, AnotherBaudIsNoiseBothWays) {
  Talk talk;
  const std::string noise = talk.Send("mode\r", 9600);
  EXPECT_EQ(noise.size(), 5U);
  EXPECT_EQ(noise.find_first_of("mode\r\n>"), std::string::npos);
  EXPECT_EQ(talk.radio.WrongBaudBytes(), 5);
  EXPECT_EQ(talk.Ask("mode"), "MODE R");
  EXPECT_THAT(talk.radio.Commands(), ElementsAre("mode"));
}

}  // namespace
}  // namespace quillmark::sim
