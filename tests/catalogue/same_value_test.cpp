#include "catalogue/same_value.h"

#include <gtest/gtest.h>

#include "catalogue/settings.h"

namespace quillmark {
namespace {

// What was sent, what the radio shows, and whether it has what was sent.
struct Pair {
  SettingId Id;
  const char* Sent;
  const char* Shown;
  bool Has = true;
};

constexpr Pair pairs[] = {
    {SettingId::PowerLevel, "30", "PWR 30 dBm"},
    {SettingId::PowerLevel, "PWR 030dbm", "PWR 30 dBm"},
    {SettingId::PowerLevel, "45", "PWR 30 dBm", false},
    {SettingId::AlarmMask, "AMASK FFFF 0001", "MASK: FFFF 0001"},
    {SettingId::AlarmMask, "ffff0001", "MASK: FFFF 0001"},
    {SettingId::AlarmSense, "lo", "ALARM ACTIVE: LO"},
    {SettingId::AlarmSense, "ALARM ACTIVE HI", "ALARM ACTIVE: LO", false},
    {SettingId::BaudRate, "9600", "BAUD 9600 8N1"},
    {SettingId::BaudRate, "BAUD 9600 7E1", "BAUD 9600 8N1", false},
    {SettingId::DLINK, "off", "DLINK 19200 (OFF)"},
    {SettingId::DLINK, "DLINK 19200 (ON)", "DLINK 19200 (OFF)", false},
    {SettingId::SoftRTU, "rtu 7", "RTU 17 (OFF)", false},
    {SettingId::SkippedZones, "5 1,2", "SKIP 1,2,5"},
    {SettingId::SkippedZones, "1,2", "SKIP 1,2,5", false},
    {SettingId::XMAP, "f", "XMAP 0000000F"},
    {SettingId::XRSSI, " -90", "XRSSI -90"},
    {SettingId::CTSdelay, "10", "CTS 10 msec"},
    {SettingId::CTSdelay, "CTSHOLD 10", "CTS 10", false},
    {SettingId::DeviceType, "cts  key", "DEVICE CTS KEY"},
    {SettingId::OwnerName, "OWN 5", "OWN 5"},
    {SettingId::OwnerName, "Hill top", "HILL TOP", false},
    {SettingId::OwnerMessage, "", "Spare", false},
};

TEST(ValueParts, ARadioHasWhatWasSentInWhateverForm) {
  for (const Pair& pair : pairs) {
    EXPECT_EQ(HasValueSent(SettingOf(pair.Id), pair.Shown, pair.Sent), pair.Has)
        << pair.Sent << " / " << pair.Shown;
  }
}

TEST(ValueParts, WordingAsideButNothingElse) {
  const struct {
    SettingId Id;
    const char *One, *Other;
    bool Same;
  } cases[] = {
      {SettingId::PowerLevel, "PWR 30 dBm", "PWR 30", true},
      {SettingId::PowerLevel, "PWR 30 dBm", "pwr 30DBM", true},
      {SettingId::PowerLevel, "30", " PWR: 030  dBm ", true},
      {SettingId::PowerLevel, "PWR 30 dBm", "PWR 3 dBm", false},
      {SettingId::PowerLevel, "PWR dBm", "PWR 30 dBm", false},
      {SettingId::AlarmMask, "MASK: FFFF FFFF", "AMASK FFFF FFFF", true},
      {SettingId::AlarmMask, "MASK:  ffff0000", "amask FFFF 0000", true},
      {SettingId::AlarmMask, "MASK: 00FF FFFF", "MASK: FFFF 00FF", false},
      {SettingId::AlarmMask, "MASK: 0000 0000", "MASK: 0000 0001", false},
      {SettingId::AlarmSense, "ALARM ACTIVE: HI", "asense hi", true},
      {SettingId::AlarmSense, "ALARM ACTIVE: HI", "ALARM ACTIVE LO", false},
      {SettingId::SkippedZones, "SKIP 1,3", "SKIP 1, 3", true},
      {SettingId::SkippedZones, "SKIP 1,3", "SKIP 13", false},
      {SettingId::SkippedZones, "SKIP NONE", "SKIP 1", false},
      {SettingId::DLINK, "DLINK 9600 (ON)", "dlink 9600 on", true},
      {SettingId::DLINK, "DLINK 9600 (ON)", "DLINK 9600 (OFF)", false},
      {SettingId::BaudRate, "BAUD 9600 8N1", "BAUD 9600 7E1", false},
      {SettingId::BaudRate, "BAUD 9600 8N1", "BAUD 9600", false},
      {SettingId::XMAP, "XMAP 0000000F", "XMAP f", true},
      {SettingId::XMAP, "XMAP 00000000", "XMAP 0", true},
      {SettingId::XMAP, "XMAP 0000000F", "XMAP 000000F0", false},
      {SettingId::XRSSI, "XRSSI -90", "XRSSI 90", false},
      {SettingId::CTSdelay, "CTS 5", "CTSHOLD 5", false},
      {SettingId::CTSdelay, "CTS 0", "CTS", false},
      {SettingId::NetworkAddress, "ADDR 1000", "ADDR 01000", true},
      {SettingId::NetworkAddress, "ADDR 1000", "ADDR 100", false},
      {SettingId::OwnerName, "Hill top", "Hill top", true},
      {SettingId::OwnerName, "Hill top", "HILL TOP", false},
      {SettingId::OwnerMessage, "Gate 1", "Gate  1", false},
      {SettingId::OwnerMessage, "Gate: 1", "Gate 1", false},
  };
  for (const auto& each : cases) {
    const Setting& setting = SettingOf(each.Id);
    EXPECT_EQ(SameValue(setting, each.One, each.Other), each.Same)
        << each.One << " and " << each.Other;
    EXPECT_EQ(SameValue(setting, each.Other, each.One), each.Same);
  }
}

TEST(ValueParts, WhatStandsInThePlaceOfAValue) {
  const struct {
    SettingId Id;
    const char* Text;
    bool Value;
  } cases[] = {
      {SettingId::CTSHOLDdelay, "CTSHOLD n/a", false},
      {SettingId::Mode, "NOT AVAILABLE", false},
      {SettingId::RepeatCount, "MASTER ONLY", false},
      {SettingId::SoftRTU, "NOT A SELECTED OPTION", false},
      {SettingId::Mode, "", false},
      {SettingId::Mode, "MODE M", true},
      {SettingId::OwnerName, "n/a", false},
      {SettingId::OwnerName, "Pump, door n/a", true},
      {SettingId::OwnerName, "", true},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(IsValue(SettingOf(each.Id), each.Text), each.Value) << each.Text;
  }
}

}  // namespace
}  // namespace quillmark
