#include "text/text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>

#include "text/numbers.h"
#include "text/path_text.h"

namespace quillmark {
namespace {

TEST(Text, FindingAndCutting) {
  EXPECT_EQ(Find("abcABC", "A"), 4U);
  EXPECT_EQ(FindAnyCase("abcABC", "A", 2), 4U);
  EXPECT_EQ(FindAnyCase("abc", "ABCD"), 0U);
  EXPECT_EQ(FindAnyCase("abc", "c", 4), 0U);
  EXPECT_EQ(FindAnyCase("abc", "c", 99), 0U);
  EXPECT_EQ(FindAnyCase("", ""), 1U);
  EXPECT_FALSE(EqualAnyCase("mode m", "MODE M "));
  EXPECT_TRUE(EndsWithAnyCase("x setup>", "SETUP>"));
  EXPECT_FALSE(EndsWithAnyCase("UP>", "SETUP>"));
  EXPECT_FALSE(EqualAnyCase("\xE4", "\xC4"));
  const struct {
    std::ptrdiff_t Start, Length;
    std::optional<std::string> Cut;
  } cuts[] = {{1, 2, "ab"}, {3, 9, "c"},           {4, 1, ""},           {9, 1, ""}, {2, 0, ""},
              {0, 1, {}},   {-3, 1, std::nullopt}, {1, -1, std::nullopt}};
  for (const auto& cut : cuts) EXPECT_EQ(Mid("abc", cut.Start, cut.Length), cut.Cut);
}

TEST(Text, Numbers) {
  const struct {
    const char* Text;
    std::optional<double> Value;
    double Leading;
  } cases[] = {{"320", 320, 320},
               {" -5 ", -5, -5},
               {"+.5", 0.5, 0.5},
               {"11.", 11, 11},
               {"1.5.2", {}, 1.5},
               {"", {}, 0},
               {".", {}, 0},
               {"-", {}, 0},
               {"1e3", {}, 1},
               {"&H10", {}, 0},
               {"1,000", {}, 1},
               {"01000", 1000, 1000},
               {"12 dBm", {}, 12},
               {"--1", {}, 0},
               {" \t1", {}, 0},
               {"nan", {}, 0},
               {"99999999999999999999", 1e20, 1e20}};
  const std::string nines(400, '9');
  EXPECT_EQ(NumericValue(nines), HUGE_VAL);
  EXPECT_EQ(NumericValue("-" + nines), -HUGE_VAL);
  EXPECT_EQ(NumericValue("0." + std::string(400, '0') + "1"), 0);
  for (const auto& each : cases) {
    EXPECT_EQ(NumericValue(each.Text), each.Value) << each.Text;
    EXPECT_EQ(LeadingNumber(each.Text), each.Leading) << each.Text;
  }
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(ColourValue("&HFFFFFF"), 0xFFFFFFU);
  for (const char* bad : {"", "&H", "&H1000000", "16777216", "-1", "blue", "&HFF ", "0xFF"}) {
    EXPECT_EQ(ColourValue(bad), std::nullopt) << bad;
  }
}

TEST(Text, HexAndBinary) {
  EXPECT_EQ(HexToBin("0aF"), "000010101111");
  EXPECT_EQ(HexToBin("x1 "), "0001");
  EXPECT_EQ(BinToHex("10000000000000000000000000000000"), "80000000");
  EXPECT_EQ(BinToHex("1010111"), "A");
  EXPECT_EQ(BinToHex("10201111"), "F");
  EXPECT_EQ(BinToHex(std::string(31, '1')), "FFFFFFF");
}

TEST(Text, PathsBecomeSingleByteText) {
  EXPECT_EQ(PathText("/a/log.txt"), "/a/log.txt");
  EXPECT_EQ(PathText("/gr\xC3\xBC\xC3\x9F"), "/gr\xFC\xDF");
  EXPECT_EQ(PathText("\xE2\x82\xAC.log"), "?.log");
  EXPECT_EQ(PathText("\xC3"), "?");
}

}  // namespace
}  // namespace quillmark
