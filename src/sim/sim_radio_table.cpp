#include "sim/sim_radio_table.h"

#include <algorithm>

#include "sim/sim_words.h"

namespace quillmark::sim {

namespace {

constexpr std::string_view onOff = "ON|OFF";
constexpr std::string_view none = "NONE";
constexpr int mostSkippedZones = 4;
constexpr std::string_view dataRates = "300|600|1200|2400|4800|9600|19200|38400|57600|115200";
constexpr std::string_view linkRates = "1200|2400|4800|9600|19200|38400|57600|115200";

constexpr int any = anyRevision;
constexpr int r2 = 20000;
constexpr int r3 = 30000;
constexpr int r32 = 30200;

// clang-format off
constexpr RadioSetting rows[] = {
    // word     label            from below    rule                    shape            least most  choices    unit   factory
    {"unit",    "UNIT",          any, noLimit, Rule::Plain,            Shape::Unit,     10000, 65000, "",      "",    "3456"},
    {"own",     "",              any, noLimit, Rule::Plain,            Shape::Text,     0,     30,  "",        "",    "Quillmark SS"},
    {"owm",     "",              any, noLimit, Rule::Plain,            Shape::Text,     0,     30,  "",        "",    "Bench radio"},
    {"mode",    "MODE",          any, noLimit, Rule::Plain,            Shape::Choice,   0,     0,   "M|R|X",   "",    "R"},
    {"pwr",     "PWR",           any, noLimit, Rule::Plain,            Shape::Number,   20,    30,  "",        "dBm", "30 dBm"},
    {"baud",    "BAUD",          any, noLimit, Rule::Plain,            Shape::DataRate, 0,     0,   dataRates, "",    "4800 8N1"},
    {"port",    "PORT",          any, noLimit, Rule::Plain,            Shape::Choice,   0,     0,   "RS232|RS485", "", "RS232"},
    {"device",  "DEVICE",        any, noLimit, Rule::Plain,            Shape::Choice,   0,     0,   "DCE|CTS KEY", "", "DCE"},
    {"amask",   "MASK:",         any, noLimit, Rule::Plain,            Shape::Mask,     0,     0,   "",        "",    "FFFF FFFF"},
    {"asense",  "ALARM ACTIVE:", any, noLimit, Rule::Plain,            Shape::Choice,   0,     0,   "HI|LO",   "",    "HI"},
    {"cts",     "CTS",           any, noLimit, Rule::Plain,            Shape::Number,   0,     255, "",        "",    "0"},
    {"ctshold", "CTSHOLD",       any, noLimit, Rule::NeedsCtsKey,      Shape::Number,   0,     6000, "",       "",    "0"},
    {"rxtot",   "RXTOT",         any, noLimit, Rule::Plain,            Shape::Number,   1,     1440, none,     "",    "NONE"},
    {"rxd",     "RXD",           r3,  noLimit, Rule::Plain,            Shape::Number,   0,     255, "",        "",    "0"},
    {"sleep",   "SLEEP",         any, noLimit, Rule::NotAtMaster,      Shape::Choice,   0,     0,   onOff,     "",    "OFF"},
    {"lpmhold", "LPMHOLD",       r32, noLimit, Rule::LowPower,         Shape::Number,   0,     1000, "",       "",    "0"},
    {"addr",    "ADDR",          any, noLimit, Rule::Plain,            Shape::Number,   1,     65000, none,    "",    "NONE"},
    {"csaddr",  "CSADDR",        r3,  noLimit, Rule::ClockSync,        Shape::Number,   1,     65000, none,    "",    "NONE"},
    {"hoptime", "HOPTIME",       any, noLimit, Rule::MasterAlone,      Shape::Choice,   0,     0,   "7|28|29", "",    "7"},
    {"skip",    "SKIP",          any, noLimit, Rule::MasterAlone,      Shape::Zones,    1,     8,   none,      "",    "NONE"},
    {"lpm",     "LPM",           r32, noLimit, Rule::MasterLowPower,   Shape::Number,   0,     7,   "",        "",    "0"},
    {"repeat",  "REPEAT",        any, noLimit, Rule::SynchronizedRead, Shape::Number,   0,     10,  "",        "",    "0"},
    {"retry",   "RETRY",         any, noLimit, Rule::MasterAlone,      Shape::Number,   0,     10,  "",        "",    "0"},
    {"fec",     "FEC",           any, noLimit, Rule::MasterAlone,      Shape::Choice,   0,     0,   onOff,     "",    "OFF"},
    {"buff",    "BUFF",          any, noLimit, Rule::MasterAlone,      Shape::Choice,   0,     0,   onOff,     "",    "ON"},
    {"saf",     "SAF",           any, noLimit, Rule::MasterAlone,      Shape::Choice,   0,     0,   onOff,     "",    "OFF"},
    {"xaddr",   "XADDR",         any, r2,      Rule::Plain,            Shape::Number,   0,     63,  "",        "",    "0"},
    {"xaddr",   "XADDR",         r2,  noLimit, Rule::Plain,            Shape::Number,   0,     31,  "",        "",    "0"},
    {"xmin",    "XMIN",          any, r2,      Rule::Plain,            Shape::Number,   0,     63,  "",        "",    "0"},
    {"xmax",    "XMAX",          any, r2,      Rule::Plain,            Shape::Number,   0,     63,  "",        "",    "0"},
    {"xmap",    "XMAP",          r2,  noLimit, Rule::Plain,            Shape::Map,      0,     0,   "",        "",    "00000000"},
    {"xpri",    "XPRI",          r2,  noLimit, Rule::Plain,            Shape::Number,   0,     31,  none,      "",    "NONE"},
    {"xrssi",   "XRSSI",         r2,  noLimit, Rule::Plain,            Shape::Number,   -120,  -40, "",        "",    "-120"},
    {"dtype",   "DTYPE",         r2,  noLimit, Rule::Plain,            Shape::Choice,   0,     0,   "ROOT|NODE", "",  "NODE"},
    {"dlink",   "DLINK",         r2,  noLimit, Rule::Plain,            Shape::Switched, 0,     0,   linkRates, "",    "19200 (ON)"},
    {"rtu",     "RTU",           r2,  noLimit, Rule::SoftwareRtu,      Shape::Switched, 0,     80,  "",        "",    "0 (OFF)"},
};
// clang-format on

using Checked = std::optional<std::string>;

Checked OneOf(std::string_view choices, std::string_view typed) {
  if (typed.empty()) return std::nullopt;
  for (const std::string_view choice : Pieces(choices, '|')) {
    if (SameWord(choice, typed)) return std::string(choice);
  }
  return std::nullopt;
}

Checked InRange(const RadioSetting& row, std::string_view typed) {
  const auto number = WholeNumber(typed);
  if (!number || *number < row.Least || *number > row.Most) return std::nullopt;
  return std::to_string(*number);
}

Checked CheckedNumber(const RadioSetting& row, const std::string& typed) {
  if (auto word = OneOf(row.Choices, typed)) return word;
  if (row.Unit.empty()) return InRange(row, typed);
  std::string_view digits = typed;
  if (digits.size() > row.Unit.size() &&
      SameWord(digits.substr(digits.size() - row.Unit.size()), row.Unit)) {
    digits = Trimmed(digits.substr(0, digits.size() - row.Unit.size()));
  }
  const auto number = InRange(row, digits);
  if (!number) return std::nullopt;
  return *number + " " + std::string(row.Unit);
}

Checked CheckedUnit(const RadioSetting& row, const std::string& typed) {
  const bool digits = typed.find_first_not_of("0123456789") == std::string::npos;
  if (digits && typed.size() == 4) return typed;
  return InRange(row, typed);
}

bool IsFormat(std::string_view text) {
  constexpr std::string_view allowed[] = {"78", "NOE", "12"};
  if (text.size() != 3) return false;
  for (std::size_t i = 0; i < 3; ++i) {
    if (allowed[i].find(text[i]) == std::string_view::npos) return false;
  }
  return true;
}

Checked CheckedDataRate(const RadioSetting& row, std::string_view current,
                        const std::string& typed) {
  std::vector<std::string> parts = Tokens(current);
  std::vector<std::string> given = Tokens(Raised(typed));
  if (given.empty() || given.size() > 2) return std::nullopt;
  if (IsFormat(given.back())) {
    parts[1] = given.back();
    given.pop_back();
  }
  if (given.size() > 1) return std::nullopt;
  if (!given.empty()) {
    const auto rate = OneOf(row.Choices, given.front());
    if (!rate) return std::nullopt;
    parts[0] = *rate;
  }
  return parts[0] + " " + parts[1];
}

// The typed digits without blanks, in capitals; nothing if one is no hex digit.
Checked HexDigits(const std::string& typed) {
  std::string digits;
  for (const char c : Raised(typed)) {
    if (c == ' ') continue;
    if (std::string_view("0123456789ABCDEF").find(c) == std::string_view::npos) {
      return std::nullopt;
    }
    digits += c;
  }
  return digits;
}

Checked CheckedMask(const std::string& typed) {
  const auto digits = HexDigits(typed);
  if (!digits || digits->size() != 8) return std::nullopt;
  return digits->substr(0, 4) + " " + digits->substr(4);
}

Checked CheckedMap(const std::string& typed) {
  const auto digits = HexDigits(typed);
  if (!digits || digits->empty() || digits->size() > 8) return std::nullopt;
  return std::string(8 - digits->size(), '0') + *digits;
}

Checked CheckedZones(const RadioSetting& row, const std::string& typed) {
  if (auto word = OneOf(row.Choices, typed)) return word;
  std::string listed;
  for (const char zone : std::string_view("12345678")) {
    if (typed.find(zone) == std::string::npos) continue;
    if (!listed.empty()) listed += ',';
    listed += zone;
  }
  const bool others = typed.find_first_not_of("12345678, ") != std::string::npos;
  const auto digits = std::count_if(typed.begin(), typed.end(), [](char c) { return c >= '1'; });
  if (others || listed.empty() || digits > mostSkippedZones) return std::nullopt;
  return listed;
}

Checked CheckedSwitch(const RadioSetting& row, std::string_view current, const std::string& typed) {
  std::vector<std::string> parts = Tokens(current);
  const std::vector<std::string> given = Tokens(Raised(typed));
  if (given.empty() || given.size() > 2) return std::nullopt;
  for (std::size_t i = 0; i < given.size(); ++i) {
    const std::string& part = given[i];
    const bool isLast = i + 1 == given.size();
    if (isLast && (part == "ON" || part == "OFF")) {
      parts[1] = "(" + part + ")";
    } else if (isLast && (part == "(ON)" || part == "(OFF)")) {
      parts[1] = part;
    } else {
      const auto number = row.Choices.empty() ? InRange(row, part) : OneOf(row.Choices, part);
      if (!number || i != 0) return std::nullopt;
      parts[0] = *number;
    }
  }
  return parts[0] + " " + parts[1];
}

}  // namespace

std::span<const RadioSetting> SettingRows() { return rows; }

int RevisionNumber(std::string_view revision) {
  int number = 0;
  int places = 0;
  for (const std::string_view piece : Pieces(revision, '.')) {
    if (places++ == 3) break;
    number = number * 100 + WholeNumber(piece).value_or(0) % 100;
  }
  for (; places < 3; ++places) number *= 100;
  return number;
}

Checked CheckedValue(const RadioSetting& row, std::string_view current, std::string_view typed) {
  const std::string squeezed = Squeezed(typed);
  switch (row.Value) {
    case Shape::Number:
      return CheckedNumber(row, squeezed);
    case Shape::Choice:
      return OneOf(row.Choices, squeezed);
    case Shape::Text:
      if (typed.size() > static_cast<std::size_t>(row.Most)) return std::nullopt;
      return std::string(typed);
    case Shape::Unit:
      return CheckedUnit(row, squeezed);
    case Shape::DataRate:
      return CheckedDataRate(row, current, squeezed);
    case Shape::Mask:
      return CheckedMask(squeezed);
    case Shape::Map:
      return CheckedMap(squeezed);
    case Shape::Zones:
      return CheckedZones(row, squeezed);
    case Shape::Switched:
      return CheckedSwitch(row, current, squeezed);
  }
  return std::nullopt;
}

}  // namespace quillmark::sim
