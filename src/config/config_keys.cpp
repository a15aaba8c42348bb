#include "config/config_keys.h"

#include "text/text.h"

namespace quillmark {

namespace {

struct Key {
  const char* Text;
  const char* Word;
  const char* Not = nullptr;  // a line with one of these is another setting's
  const char* Nor = nullptr;
};

constexpr Key keys[] = {
    {"UNIT", "unit"},
    {"OWN", "own"},
    {"OWM", "owm"},
    {"MODE", "mode"},
    {"PWR", "pwr"},
    {"BAUD", "baud"},
    {"PORT", "port"},
    {"DEVICE", "device"},
    {"AMASK", "amask"},
    {"ALARM ACTIVE", "asense"},
    {"CTS", "cts", "CTSHOLD"},
    {"CTSHOLD", "ctshold"},
    {"RXTOT", "rxtot"},
    {"RXD", "rxd"},
    {"SLEEP", "sleep"},
    {"LPMHOLD", "lpmhold"},
    {"ADDR", "addr", "XADDR", "CSADDR"},
    {"CSADDR", "csaddr"},
    {"HOPTIME", "hoptime"},
    {"SKIP", "skip"},
    {"LPM", "lpm", "LPMHOLD"},
    {"REPEAT", "repeat"},
    {"RETRY", "retry"},
    {"FEC", "fec"},
    {"BUFF", "buff"},
    {"SAF", "saf"},
    {"XADDR", "xaddr"},
    {"XMIN", "xmin"},
    {"XMAX", "xmax"},
    {"XMAP", "xmap"},
    {"XPRI", "xpri"},
    {"XRSSI", "xrssi"},
    {"DTYPE", "dtype"},
    {"DLINK", "dlink"},
    {"RTU", "rtu"},
};

bool Matches(const Key& key, std::string_view line) {
  return Holds(line, key.Text) && (key.Not == nullptr || !Holds(line, key.Not)) &&
         (key.Nor == nullptr || !Holds(line, key.Nor));
}

}  // namespace

std::string_view SettingOfLine(std::string_view line) {
  // It names options that share words with settings, as in "LPM OFF".
  if (line.starts_with("Diagnostics")) return {};
  for (const Key& key : keys) {
    if (Matches(key, line)) return key.Word;
  }
  return {};
}

}  // namespace quillmark
