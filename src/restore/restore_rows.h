#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "session/session.h"

namespace quillmark {

// The 35 settings of the store and restore window, in the order in which they are programmed: what
// each row shows, where, for which revisions, and how its text becomes a command or a line of a
// file. The window and all that it does run over this one table.

enum class RestoreSetting : std::size_t {
  UnitAddr,
  OwnerName,
  OwnerMessage,
  Mode,
  PowerLevel,
  BaudRate,
  Port,
  DeviceType,
  AlarmMask,
  AlarmSense,
  CTSdelay,
  CTSHOLDdelay,
  RxTimeOut,
  RXD,
  SleepMode,
  LPMHOLD,
  NetworkAddress,
  CSADDR,
  HopTime,
  SkippedZones,
  LPM,
  RepeatCount,
  RetryCount,
  FEC,
  DataBuff,
  StoreAndForward,
  XADDR,
  XMAX,
  XMIN,
  XMAP,
  XPRI,
  XRSSI,
  DTYPE,
  DLINK,
  SoftRTU,
};
constexpr std::size_t RestoreSettingCount = 35;

// What a field without a value shows.
inline constexpr const char* NoValue = "n/a";

// The revisions for which something holds.
struct RevisionGate {
  double From = -std::numeric_limits<double>::infinity();
  double Below = std::numeric_limits<double>::infinity();

  // An unknown revision counts as below every threshold.
  bool HoldsBelowIfUnknown(const Revision& revision) const;
  // An unknown revision passes.
  bool HoldsIfUnknown(const Revision& revision) const;
};

struct RestoreRow {
  // Which mode of the radio the row waits for.
  enum class Follows {
    None,
    Master,          // a master, as a read and a load see it
    MasterAndTick,   // a master, also when the tick of the mode row decides
    NotMaster,       // the sleep row: not a master; by the tick, a remote alone
    NotRemoteAtLoad  // not a remote, as a load sees it
  };
  // How the text of a field becomes a command or a line of a file.
  enum class Form {
    Line,        // it is the line
    Owner,       // the line without its word
    AlarmMask,   // "MASK: " and the digits
    AlarmSense,  // printed under another word than it is programmed
    Switched     // a value and "(ON)" or "(OFF)", two lines in one
  };

  RestoreSetting Id;
  const char* Check;
  const char* Caption;
  const char* Current;
  const char* New;
  const char* Word;  // reads the setting
  int Frame;         // 0 to 6
  double Top;        // twips from the top of the frame
  RevisionGate Shown{};
  RevisionGate Read{};
  RevisionGate Loaded{};
  Follows Mode = Follows::None;
  Form Text = Form::Line;
  bool SavedAtMasterOnly = false;
};

extern const std::array<RestoreRow, RestoreSettingCount> RestoreRows;

// What the row's value begins with, in whatever case; empty: any text.
std::string_view RestoreOpening(const RestoreRow& row);

// The place in the table of the row that is read and saved as the n-th, from 0: the lower end of
// the extension range comes before the upper one then, and behind it when they are programmed.
std::size_t RestoreReadPlace(std::size_t n);

// How a row's value in the radio stands to that of the file.
enum class RestoreMatch {
  Missing,  // one of them is not there
  Equal,    // blanks and colons aside, which the radio prints as it likes
  Differs
};
RestoreMatch MatchOf(std::string_view current, std::string_view next);

}  // namespace quillmark
