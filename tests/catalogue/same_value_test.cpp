#include "catalogue/same_value.h"

#include <gtest/gtest.h>

#include "catalogue/settings.h"

namespace quillmark {
namespace {

TEST(SameValue, WordingAsideButNothingElse) {
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
    EXPECT_EQ(MeansTheSame(setting, each.One, each.Other), each.Same)
        << each.One << " and " << each.Other;
    EXPECT_EQ(MeansTheSame(setting, each.Other, each.One), each.Same);
  }
}

TEST(SameValue, WhatStandsInThePlaceOfAValue) {
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
