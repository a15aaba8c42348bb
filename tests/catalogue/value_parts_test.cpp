#include "catalogue/value_parts.h"

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
  // As a whole, a rate alone is another value than one with its format.
  EXPECT_FALSE(SameValue(SettingOf(SettingId::BaudRate), "9600", "BAUD 9600 8N1"));
}

}  // namespace
}  // namespace quillmark
