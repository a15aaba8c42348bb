#include "firmware/s_records.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "sim/firmware_image.h"

namespace quillmark {
namespace {

using sim::SRecord;

std::string FaultOf(const std::string& file, std::size_t pieceLength) {
  SRecordCheck check;
  for (std::size_t at = 0; at < file.size(); at += pieceLength) {
    check.Take(std::string_view(file).substr(at, pieceLength));
  }
  const auto fault = check.Finish();
  return fault ? std::to_string(fault->Line) + ": " + fault->What : "";
}

TEST(SRecords, TheFirstFaultyLineIsNamed) {
  const std::string head = SRecord('0', 2, 0, "77-1234A01 3.2.1");
  const std::string one = SRecord('2', 3, 0x1000, "firmware");  // S20C001000...
  const std::string two = SRecord('2', 3, 0x1008, "more");
  const std::string end = SRecord('8', 3, 0, "");
  const std::string data = head + one + two;
  const auto changed = [](std::string text, std::size_t at, const std::string& with) {
    return text.replace(at, with.size(), with);
  };
  std::string bare;
  for (const char c : data + end) {
    if (c != '\r') bare += static_cast<char>(std::tolower(c));
  }
  // As srec_cat of the srecord package writes them.
  const char* const tool24 =
      "S012000037372D31323334413031332E322E31F4\n"
      "S225010000030A11181F262D343B424950575E656C737A81888F969DA4ABB2B9C0C7CED5DCE306\n"
      "S225010021EAF1F8FF060D141B222930373E454C535A61686F767D848B9299A0A7AEB5BCC3CA1E\n"
      "S208010042D1D8DFE646\nS5030003F9\nS804000000FB\n";
  const struct {
    const char* Name;
    std::string File;
    const char* Fault;
  } cases[] = {
      {"sound", data + end, ""},
      {"of a tool, 24 bits", tool24, ""},
      {"small letters, line feeds", bare, ""},
      {"no last line end", bare.substr(0, bare.size() - 1), ""},
      {"empty lines", "\r\n\n" + data + "\n\n" + end + "\r\n\r\n\n", ""},
      {"all widths",
       head + SRecord('1', 2, 1, "a") + SRecord('2', 3, 2, "b") + SRecord('3', 4, 0x10000000, "c") +
           SRecord('7', 4, 0, ""),
       ""},
      {"counts", data + SRecord('5', 2, 2, "") + SRecord('6', 3, 2, "") + end, ""},
      {"a gap and no data", head + one + SRecord('2', 3, 0x2000, "") + end, ""},
      {"S4", head + SRecord('4', 2, 0, "") + end, "2: it does not begin with a type of record"},
      {"no length", head + "S2\r\n", "2: it has no length"},
      {"short", head + one.substr(0, 20) + "\n", "2: it is shorter than its length says"},
      {"long", head + changed(one, 2, "0B") + end, "2: it is longer than its length says"},
      {"two in a line", head + one.substr(0, one.size() - 2) + two + end,
       "2: it is longer than its length says"},
      {"too small for S2", head + "S2030000FC\r\n", "2: its length does not fit its type"},
      {"count with data", data + SRecord('5', 2, 2, "x"), "4: its length does not fit its type"},
      {"digit", head + changed(one, 12, "g") + end,
       "2: it holds a character that is no hexadecimal digit"},
      {"checksum", head + changed(one, 11, "7") + end, "2: its checksum is 86 and should be 85"},
      {"second header", head + one + head + end, "3: it is a second header record"},
      {"out of order", head + two + one + SRecord('2', 3, 0x1007, "x") + end, ""},
      {"count is high", data + SRecord('5', 2, 3, "") + end,
       "4: it counts 3 data records where there are 2"},
      {"count is low", "\n" + data + "\r\n\n" + SRecord('6', 3, 1, "") + end,
       "7: it counts 1 data records where there are 2"},
      {"no data", head + end, "2: it ends the file before any data"},
      {"no end", data + "\r\n\r\n", "3: it is the last one and no end record"},
      {"behind the end", data + end + two, "5: it stands behind the end record"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    EXPECT_EQ(FaultOf(c.File, c.File.size() + 1), c.Fault);
    EXPECT_EQ(FaultOf(c.File, 1), c.Fault);
  }
}

TEST(SRecords, AnEndlessLineIsFoundOutAtOnce) {
  SRecordCheck check;
  check.Take("S2FF" + std::string(511, '0'));
  EXPECT_TRUE(check.Failed());
  check.Take(std::string(1 << 20, '0'));
  EXPECT_EQ(check.Finish()->What, "it is longer than its length says");
}

}  // namespace
}  // namespace quillmark
