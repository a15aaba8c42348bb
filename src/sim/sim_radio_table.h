#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillmark::sim {

// The radio's settings as one table: word, what is printed in front of the value, which revisions
// have it, which values it takes and its factory value. SimRadioSettings runs over these rows; a
// new setting is a new row here. The table lives for the whole run.

// A firmware revision such as 3.2.0 as one number, 30200, so that revisions compare; 1.10.2 is
// below 2.0.0. A letter counts as 0.
int RevisionNumber(std::string_view revision);
constexpr int anyRevision = 0;
constexpr int noLimit = 1'000'000'000;

// How a value is typed and checked.
enum class Shape {
  Number,    // Least to Most, and the row's Unit behind it if it has one
  Choice,    // one of Choices, which are separated by '|'
  Text,      // up to Most characters, kept as typed
  Unit,      // four digits, or Least to Most
  DataRate,  // a rate of Choices and/or a format such as 8N1
  Mask,      // 8 hex digits, blanks anywhere
  Map,       // up to 8 hex digits
  Zones,     // up to four digits 1 to 8, a repeated one counts again
  Switched   // a number (of Choices, or Least to Most) and/or ON or OFF
};

// Where a setting is there but says something else than its value, or refuses a change.
enum class Rule {
  Plain,
  NeedsCtsKey,       // read as "n/a" unless DEVICE is CTS KEY
  NotAtMaster,       // read as "n/a" at a master
  MasterAlone,       // changed at the master only
  ClockSync,         // the same, and "n/a" alone off the master or when there is none
  SynchronizedRead,  // the same, and not to be read at a remote without synchronization
  LowPower,          // only with the low power feature
  MasterLowPower,    // only with the low power feature, and changed at the master only
  SoftwareRtu        // only with the software RTU feature
};

// A row of the table.
struct RadioSetting {
  std::string_view Word;     // as typed, small letters
  std::string_view Label{};  // printed in front of the value with a blank; "" for the value alone
  int From = anyRevision;    // first revision that has it
  int Below = noLimit;       // first revision that no longer has it
  Rule Applies = Rule::Plain;
  Shape Value;
  int Least = 0;
  int Most = 0;
  std::string_view Choices{};  // a choice of "NONE" makes the setting one that can be empty
  std::string_view Unit{};
  std::string_view Factory;
};

std::span<const RadioSetting> SettingRows();

// The value as the radio keeps and prints it, made from what was typed; `current` completes a
// value that may be typed in part. Nothing when the radio would call it an invalid entry.
std::optional<std::string> CheckedValue(const RadioSetting& row, std::string_view current,
                                        std::string_view typed);

}  // namespace quillmark::sim
