#include "firmware/firmware_version.h"

#include <array>

#include "text/hex.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::string_view headerRecord = "S0";
constexpr std::string_view partNumber = "37372D31323334";  // "77-1234" in hex
constexpr std::ptrdiff_t partNumberAt = 9;
constexpr std::size_t versionAt = 30;  // counted from 0
constexpr std::size_t versionEnd = 40;

// Where major, minor and patch stand in a version, counted from 0.
constexpr std::array<std::size_t, 3> places{0, 2, 4};

// One character, empty where the version is too short for it.
std::string_view At(std::string_view version, std::size_t place) {
  return version.size() > place ? version.substr(place, 1) : std::string_view();
}

bool HasLetter(std::string_view version, char letter) {
  for (const std::size_t place : places) {
    if (EqualAnyCase(At(version, place), std::string_view(&letter, 1))) return true;
  }
  return false;
}

// By single characters, from major to patch.
int Compare(std::string_view one, std::string_view other) {
  for (const std::size_t place : places) {
    const int order = Upper(At(one, place)).compare(Upper(At(other, place)));
    if (order != 0) return order;
  }
  return 0;
}

void AskAboutAlphas(std::vector<MessageBox>& questions, std::string_view installed,
                    std::string_view next) {
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::string quoted = std::string("'") + letter + "'";
    std::string text;
    if (HasLetter(installed, letter)) {
      text = "WARNING!! The current version contains an alpha: " + quoted +
             ". Are you sure you wish to override this?";
    } else if (HasLetter(next, letter)) {
      text = "WARNING!! The firmware you are about to load contains an alpha: " + quoted +
             ". Are you sure you wish to install this?";
    } else {
      continue;
    }
    questions.push_back({.Text = text,
                         .Title = "WARNING",
                         .Symbol = Icon::Critical,
                         .Choice = Buttons::YesNo,
                         .Irreversible = true});
  }
}

}  // namespace

FirmwareHeader ReadFirmwareHeader(std::string_view head) {
  FirmwareHeader header;
  header.IsHeaderRecord = EqualAnyCase(head.substr(0, headerRecord.size()), headerRecord);
  header.IsForThisRadio =
      EqualAnyCase(Mid(head, partNumberAt, partNumber.size()).value_or(""), partNumber);
  for (std::size_t at = versionAt; at < versionEnd && at + 2 <= head.size(); at += 2) {
    const auto value = HexPair(head, at);
    header.Version += value ? static_cast<char>(*value) : '?';
  }
  return header;
}

std::vector<MessageBox> VersionQuestions(const std::string& installed, const std::string& next) {
  std::vector<MessageBox> questions;
  AskAboutAlphas(questions, installed, next);
  if (installed.empty()) return questions;
  const std::string begin =
      "WARNING!! The firmware you are about to load into the radio, version " + next + "\r";
  const auto ask = [&](const std::string& text) {
    questions.push_back({.Text = begin + text + "Are you sure you wish to continue?",
                         .Title = "Warning!",
                         .Symbol = Icon::Exclamation,
                         .Choice = Buttons::YesNo,
                         .Irreversible = true});
  };
  const int order = Compare(installed, next);
  if (order > 0) {
    ask("is older than the version currently installed, version " + installed + ".\r\r\t    ");
  } else if (order == 0) {
    ask("appears to be the same version as the one currently installed, also version " + installed +
        ".\r\r\t       ");
  }
  return questions;
}

}  // namespace quillmark
