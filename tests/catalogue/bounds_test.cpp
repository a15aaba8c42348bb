#include "catalogue/bounds.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "catalogue/settings.h"
#include "config/judged_lines.h"
#include "sim/sim_radio_settings.h"
#include "sim/sim_words.h"

namespace quillmark {
namespace {

// In many forms; "|" stands between them, and the first one is empty.
constexpr std::string_view typed =
    "| |NONE|none|N|ON|off|(ON)|ONN|M|r|X|MX|HI|lo|DCE|cts key| CTS   KEY |CTSKEY|RS232|RS422|ROOT|"
    "node|+5|-5|--5|5.0|5 5|0x5|1e3|007|0000|1234|12345|999999999|9999999999|7|8|28|29|"
    "30 dBm|30dBm|"
    " 30  DBM |dBm|31 dBm|30 ms|30 dBm dBm|9600 8N1|9600  7e2|8N1|8N3|8N11|8N1 9600|9600 8N1 8N1|"
    "9601|9600 4800|19200 (ON)|9600 off|ON 9600|80 ON|81 ON|5 (off)|1,3|3 1|1234 5|1,9|0|,|1,1,1,1|"
    "8765|FFFF FFFF|ffffffff|F F F F F F F F|FFFFFFF|FFFFFFFFF|F|G|0000000G|"
    "Thirty letters are a long name|Thirty-one letters are too long| Thirty letters are a long "
    "name";

// Those, and what stands at and beside the bounds of any setting.
std::set<std::string> ManyValues() {
  std::set<std::string> values;
  for (const std::string_view each : sim::Pieces(typed, '|')) values.emplace(each);
  for (const sim::RadioSetting& row : sim::SettingRows()) {
    for (const int bound : {row.Least, row.Most}) {
      for (const int beside : {-1, 0, 1}) values.insert(std::to_string(bound + beside));
    }
    values.emplace(row.Factory);
    for (const std::string_view word : sim::Pieces(row.Choices, '|')) values.emplace(word);
  }
  return values;
}

// Gives how many of the values the radio takes.
int ExpectTheSameOf(const Setting& setting, const std::set<std::string>& values,
                    const std::string& version, const std::string& mode) {
  int taken = 0;
  for (const std::string& value : values) {
    sim::SimRadioSettings radio({.Revision = version}, mode, "1000");
    const sim::RadioSetting* row = radio.Row(setting.Word);
    const bool takes = row != nullptr && radio.Program(*row, value) == "PROGRAMMED OK";
    const Verdict verdict = Judge(setting, value, RevisionOf(version), "MODE " + mode);
    taken += takes ? 1 : 0;
    EXPECT_EQ(verdict.Fine(), takes) << setting.Word << " \"" << value << "\" in mode " << mode
                                     << " of " << version << ": " << verdict.Sentence();
  }
  return taken;
}

// The radio keeps a table of its own, and its own words, so that one judges the other.
TEST(Bounds, WhatIsCalledFineIsWhatTheRadioTakes) {
  const std::set<std::string> values = ManyValues();
  for (const Setting& setting : AllSettings()) {
    if (!setting.Restored) continue;
    int taken = 0;
    for (const char* version : {"1.9.0", "2.0.0", "2.9.9", "3.0.0", "3.2.0"}) {
      for (const char* mode : {"M", "R", "X"}) {
        taken += ExpectTheSameOf(setting, values, version, mode);
      }
    }
    EXPECT_GT(taken, 0) << setting.Word;
  }
}

TEST(Bounds, TheSentenceNamesWhatRadiosTake) {
  const struct {
    SettingId Id;
    const char *Value, *Version, *Mode, *Sentence;
  } cases[] = {
      {SettingId::PowerLevel, "45", "3.2.0", "MODE R", "PWR 45: radios take 20 to 30 dBm"},
      {SettingId::RxTimeOut, "0", "", "", "RXTOT 0: radios take 1 to 1440 minutes or NONE"},
      {SettingId::HopTime, "7", "3.2.0", "MODE R", "HOPTIME: only a master takes it"},
      {SettingId::HopTime, "8", "3.2.0", "mode m", "HOPTIME 8: radios take 7, 28 or 29 ms"},
      {SettingId::HopTime, "7", "3.2.0", "n/a", ""},
      {SettingId::LPM, "8", "3.1.9", "MODE R", "LPM: radios from 3.2.0 on have it"},
      {SettingId::LPM, "7", "", "", ""},
      {SettingId::XMIN, "1", "2.0.0", "", "XMIN: radios below 2.0.0 have it"},
      {SettingId::XADDR, "64", "", "", "XADDR 64: radios take 0 to 63"},
      {SettingId::XADDR, "32", "2.0.0", "", "XADDR 32: radios take 0 to 31"},
      {SettingId::UnitAddr, "99", "", "", "UNIT 99: radios take 10000 to 65000 or 4 digits"},
      {SettingId::AlarmSense, "UP", "", "", "ALARM ACTIVE UP: radios take HI or LO"},
      {SettingId::AlarmMask, "F", "", "", "AMASK F: radios take 8 hexadecimal digits"},
      {SettingId::XMAP, "", "", "", "XMAP: radios take up to 8 hexadecimal digits"},
      {SettingId::SkippedZones, "9", "", "",
       "SKIP 9: radios take NONE or up to 4 digits from 1 to 8"},
      {SettingId::SoftRTU, "81", "", "", "RTU 81: radios take 0 to 80, ON or OFF, or both"},
      {SettingId::BaudRate, "9601", "", "",
       "BAUD 9601: radios take 300, 600, 1200, 2400, 4800, 9600, 19200, 38400, 57600 or 115200, a "
       "format such as 8N1, or both"},
      {SettingId::OwnerName, "A name that is so long that no radio takes it", "", "",
       "OWN A name that is so long that no radio tak...: radios take up to 30 characters"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(Judge(SettingOf(each.Id), each.Value, RevisionOf(each.Version), each.Mode).Sentence(),
              each.Sentence);
  }
}

TEST(Bounds, AHintTellsUnitFactoryValueAndWhoTakesIt) {
  const struct {
    SettingId Id;
    const char* Hint;
  } cases[] = {
      {SettingId::SerialNumber, ""},
      {SettingId::OwnerName, "Radios take up to 30 characters."},
      {SettingId::CTSdelay, "Radios take 0 to 255 ms. Factory value: 0 ms."},
      {SettingId::Mode, "Radios take M, R or X. Factory value: R."},
      {SettingId::LPM,
       "Radios take 0 to 7. Factory value: 0. Only a master takes it. Radios from 3.2.0 on have "
       "it."},
  };
  for (const auto& each : cases) EXPECT_EQ(HintOf(SettingOf(each.Id), {}), each.Hint);
}

TEST(Bounds, TheLinesOfAFileAreJudgedAsTheyAreSent) {
  const std::vector<std::string> lines = {
      "#PWR 45",         "PWR 45",     "PWR",        "PWR ",
      "FOO 3",           "",           "MODE R",     "HOPTIME 7",
      "mode  M ",        "SKIP 9",     "HOPTIME 28", "ALARM ACTIVE: LO",
      "ALARM ACTIVE UP", "OWN PWR 45", "DLINK OFF",  "XMIN 3",
      "MODE Q",          "RETRY 3",    "OWM ",       "Diagnostics ON, LPM OFF"};
  std::string told;
  for (const JudgedLine& each : JudgeLines(lines, RevisionOf("3.2.0")))
    told += each.Sentence() + "\n";
  EXPECT_EQ(told,
            "line 2: PWR 45, radios take 20 to 30 dBm\n"
            "line 8: HOPTIME, only a master takes it\n"
            "line 10: SKIP 9, radios take NONE or up to 4 digits from 1 to 8\n"
            "line 13: ALARM ACTIVE UP, radios take HI or LO\n"
            "line 16: XMIN, radios below 2.0.0 have it\n"
            "line 17: MODE Q, radios take M, R or X\n");
}

}  // namespace
}  // namespace quillmark
