#include "sim/sim_loader.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "sim/firmware_image.h"
#include "talk.h"

namespace quillmark::sim {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

const std::string header = SRecord('0', 2, 0, "77-1234A01 3.2.1");
const std::string data = SRecord('2', 3, 0x1000, "firmware") + SRecord('2', 3, 0x1008, "more");
const std::string end = SRecord('8', 3, 0x1000, "");

std::string Replaced(std::string text, std::size_t at, char with) {
  text[at] = with;
  return text;
}

// In the loader, erased, and at 115200 baud, as the console brings it there.
void BringUp(Talk& talk) {
  EXPECT_THAT(talk.Send("\r\r", 115200), EndsWith("LOADER>"));
  EXPECT_EQ(talk.radio.Baud(), 115200);
  talk.Send("ERASE\r", 115200);
  EXPECT_THAT(talk.Pass(std::chrono::seconds(1)), EndsWith("ERASED\r\nLOADER>"));
  EXPECT_EQ(talk.Send("PROGRAM\r", 115200), "PROGRAM\r\nSEND S-RECORDS\r\n");
}

SimRadioOptions InLoader() {
  SimRadioOptions options;
  options.StartInLoader = true;
  return options;
}

TEST(SimLoader, JudgesTheWholeImage) {
  const std::string count = SRecord('5', 2, 2, "");
  const struct {
    std::string name;
    std::string image;
    std::string verdict;
  } cases[] = {
      {"sound", header + data + count + end, "PROGRAMMED OK"},
      {"one byte behind it", header + data + end + "!", "PROGRAMMED OK"},
      {"checksum", header + Replaced(data, 14, 'F') + end, "CHECKSUM IN RECORD 2"},
      {"byte dropped", header + data.substr(0, 14) + data.substr(15) + end, "LENGTH IN RECORD 2"},
      {"order", header + SRecord('2', 3, 0x1001, "x") + data + end, "ADDRESS IN RECORD 3"},
      {"count", header + data + SRecord('5', 2, 3, "") + end, "COUNT IN RECORD 4"},
      {"no header", data + end, "HEADER IN RECORD 1"},
      {"other radio", SRecord('0', 2, 0, "77-9999A01 3.2.1") + data + end,
       "OTHER RADIO IN RECORD 1"},
      {"no data", header + end, "NO DATA IN RECORD 2"},
      {"no end", header + data, "NO END RECORD"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Talk talk(InLoader());
    BringUp(talk);
    std::string said = talk.Send(c.image, 115200);
    said += talk.Pass(std::chrono::seconds(2));
    const bool sound = c.verdict == "PROGRAMMED OK";
    const std::string text = sound ? c.verdict : "PROGRAMMING FAILED: " + c.verdict;
    EXPECT_EQ(said, "\r\n" + text + "\r\nLOADER>");
    EXPECT_EQ(talk.radio.Transfer().Sound, sound);
    EXPECT_THAT(talk.Send("EXIT\r", 115200), HasSubstr(sound ? "STARTING 3.2.1" : "NO FIRMWARE"));
  }
}

}  // namespace
}  // namespace quillmark::sim
