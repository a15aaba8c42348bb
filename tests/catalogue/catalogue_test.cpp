#include <algorithm>

#include "catalogue/settings.h"
#include "config/config_bench.h"
#include "sim/sim_radio_table.h"
#include "text/text.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::set<std::string> names = {"unit", "own", "owm"};

const Setting* RowOf(std::string_view word) {
  const auto row = std::ranges::find(AllSettings(), word, &Setting::Word);
  return row == AllSettings().end() ? nullptr : &*row;
}

// As the simulated radio counts: 320 is 30200.
int RadioRevision(double revision) {
  if (revision < 0) return sim::anyRevision;
  if (revision > 999) return sim::noLimit;
  const int number = static_cast<int>(revision);
  return number / 100 * 10000 + number / 10 % 10 * 100 + number % 10;
}

// The simulated radio keeps a table of its own, so that one judges the other.
TEST(Catalogue, EverySettingOfTheRadioHasARowThatAgrees) {
  std::set<std::string> seen;
  for (const sim::RadioSetting& radio : sim::SettingRows()) {
    const std::string word(radio.Word);
    SCOPED_TRACE(word);
    const Setting* const row = RowOf(word);
    if (row == nullptr) {
      ADD_FAILURE() << word << " has no row in the catalogue";
      continue;
    }
    EXPECT_TRUE(row->Restored) << word << " is in no file";
    EXPECT_THAT(std::string(radio.Label), StartsWith(row->Reply));
    const SettingValue& value = row->Value;
    const bool text = radio.Value == sim::Shape::Text;
    const bool old = radio.Below == RadioRevision(200) && value.MostBelow200;
    EXPECT_EQ(value.Least.value_or(0), radio.Least);
    EXPECT_EQ((text  ? value.Longest
               : old ? value.MostBelow200
                     : value.Most)
                  .value_or(0),
              radio.Most);
    EXPECT_EQ(value.Words, radio.Choices);
    EXPECT_EQ(value.Unit, radio.Unit);
    if (names.contains(word)) {
      EXPECT_EQ(value.Factory, nullptr);
    } else {
      const std::string unit = radio.Unit.empty() ? "" : " " + std::string(radio.Unit);
      EXPECT_EQ(value.Factory + unit, radio.Factory);
    }
    // The radio has one row for the older extension addresses and one for the newer.
    if (!value.MostBelow200) {
      EXPECT_EQ(RadioRevision(row->Revisions.From), radio.From);
      EXPECT_EQ(RadioRevision(row->Revisions.Below), radio.Below);
    }
    seen.insert(word);
  }
  for (const Setting& row : AllSettings()) {
    EXPECT_EQ(row.Restored.has_value(), seen.contains(row.Word)) << row.Word;
  }
}

TEST(Catalogue, APromptNamesTheBoundsOfItsSetting) {
  const auto expect = [](const char* prompt, const std::optional<int>& bound) {
    EXPECT_THAT(prompt, HasSubstr(bound ? std::to_string(*bound) : ""));
  };
  for (const Setting& row : AllSettings()) {
    if (!row.Input) continue;
    const bool two = row.Input->PromptFrom200 != nullptr;
    const char* const newest = two ? row.Input->PromptFrom200 : row.Input->Prompt;
    expect(newest, row.Value.Least);
    expect(newest, row.Value.Most);
    expect(newest, row.Value.Longest);
    EXPECT_EQ(two, row.Value.MostBelow200.has_value());
    expect(row.Input->Prompt, row.Value.MostBelow200);
  }
}

class DefaultSet : public ConfigBench {};

TEST_F(DefaultSet, ClearsEverySettingButTheNames) {
  const std::string text = FileText(ShippedFolder() / "NewRadio.txt");
  for (const sim::RadioSetting& radio : sim::SettingRows()) {
    const std::string line = "\n" + Upper(radio.Word) + " ";
    EXPECT_EQ(("\n" + text).find(line) == std::string::npos,
              names.contains(std::string(radio.Word)))
        << radio.Word;
  }
  std::string expected;
  for (const std::string& line : defaultSet) expected += line + "\r\n";
  EXPECT_EQ(text, expected);
}

}  // namespace
}  // namespace quillmark
