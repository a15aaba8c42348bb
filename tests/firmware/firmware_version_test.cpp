#include "firmware/firmware_version.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sim/firmware_image.h"

namespace quillmark {
namespace {

std::string CurrentAlpha(char letter) {
  return std::string("WARNING!! The current version contains an alpha: '") + letter +
         "'. Are you sure you wish to override this?";
}

std::string NextAlpha(char letter) {
  return std::string("WARNING!! The firmware you are about to load contains an alpha: '") + letter +
         "'. Are you sure you wish to install this?";
}

std::string Older(const std::string& installed, const std::string& next) {
  return "WARNING!! The firmware you are about to load into the radio, version " + next +
         "\ris older than the version currently installed, version " + installed +
         ".\r\r\t    Are you sure you wish to continue?";
}

std::string Same(const std::string& installed, const std::string& next) {
  return "WARNING!! The firmware you are about to load into the radio, version " + next +
         "\rappears to be the same version as the one currently installed, also version " +
         installed + ".\r\r\t       Are you sure you wish to continue?";
}

TEST(FirmwareVersion, TheLadderOfQuestions) {
  const struct {
    const char* Installed;
    const char* Next;
    std::vector<std::string> Questions;
  } cases[] = {
      {"3.2.0", "3.2.1", {}},
      {"1.9.9", "2.0.0", {}},
      {"3.2.0", "3.2.0", {Same("3.2.0", "3.2.0")}},
      {"3.2.0", "3-2-0", {Same("3.2.0", "3-2-0")}},
      {"2.0.0", "1.9.9", {Older("2.0.0", "1.9.9")}},
      {"3.2.1", "3.2.0", {Older("3.2.1", "3.2.0")}},
      {"3.2.9", "3.3.0", {}},
      {"1.2.0", "1.2.a", {NextAlpha('A')}},
      {"1.2.Z", "1.3.0", {CurrentAlpha('Z')}},
      {"1.2.b", "1.2.B", {CurrentAlpha('B'), Same("1.2.b", "1.2.B")}},
      {"1.2.b", "1.2.a", {NextAlpha('A'), CurrentAlpha('B'), Older("1.2.b", "1.2.a")}},
      {"C.D.A",
       "C.E.B",
       {CurrentAlpha('A'), NextAlpha('B'), CurrentAlpha('C'), CurrentAlpha('D'), NextAlpha('E')}},
      {"", "", {}},
      {"3.2.0", "", {Older("3.2.0", "")}},
      {"3.2.0", "3.2", {Older("3.2.0", "3.2")}},
  };
  for (const auto& c : cases) {
    std::vector<std::string> texts;
    for (const MessageBox& box : VersionQuestions(c.Installed, c.Next)) {
      texts.push_back(box.Text);
      const bool alpha = box.Text.find("alpha") != std::string::npos;
      EXPECT_EQ(box.Title, alpha ? "WARNING" : "Warning!");
      EXPECT_EQ(box.Symbol, alpha ? Icon::Critical : Icon::Exclamation);
      EXPECT_EQ(box.Choice, Buttons::YesNo);
    }
    EXPECT_EQ(texts, c.Questions) << c.Installed << " to " << c.Next;
  }
}

TEST(FirmwareVersion, TheHeadOfAFile) {
  const std::string good = sim::FirmwareImage("3.2.1", 512).substr(0, FirmwareHeaderLength);
  std::string small = good;
  for (char& c : small) c = static_cast<char>(std::tolower(c));
  std::string other = good;
  other[20] = '5';
  std::string noHex = good;
  noHex.replace(32, 2, "xy");
  const struct {
    std::string Head;
    bool HeaderRecord;
    bool ThisRadio;
    const char* Version;
  } cases[] = {
      {good, true, true, "3.2.1"},           {small, true, true, "3.2.1"},
      {other, true, false, "3.2.1"},         {"S2" + good.substr(2), false, true, "3.2.1"},
      {noHex, true, true, "3?2.1"},          {good.substr(0, 35), true, true, "3."},
      {good.substr(0, 21), true, false, ""}, {"", false, false, ""},
  };
  for (const auto& c : cases) {
    const FirmwareHeader header = ReadFirmwareHeader(c.Head);
    EXPECT_EQ(header.IsHeaderRecord, c.HeaderRecord) << c.Head;
    EXPECT_EQ(header.IsForThisRadio, c.ThisRadio) << c.Head;
    EXPECT_EQ(header.Version, c.Version) << c.Head;
  }
}

}  // namespace
}  // namespace quillmark
