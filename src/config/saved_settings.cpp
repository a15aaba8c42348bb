#include "config/saved_settings.h"

#include <algorithm>

#include "config/direct_run.h"
#include "text/text.h"

namespace quillmark {

namespace {

using Cut = SavedSetting::Cut;

// clang-format off
constexpr SavedSetting settings[] = {
    {"unit", "UNIT", "UNIT"},
    {"OWN", "OWN", nullptr, Cut::Owner},
    {"OWM", "OWM", nullptr, Cut::Owner},
    {"mode", "MODE", "MODE", Cut::SixWide},
    {"pwr", "PWR", "PWR", Cut::TenWide},
    {"baud", "BAUD", "BAUD", Cut::Tail, false, false},
    {"port", "PORT", "PORT"},
    {"device", "DEVICE", "DEVICE"},
    {"amask", nullptr, "MASK", Cut::AlarmMask},
    {"asense", "ASENSE", "ALARM", Cut::NoColon},
    {"cts", "CTS", "CTS"},
    {"ctshold", "CTSHOLD", "CTSHOLD", Cut::Tail, false, true, "n/a"},
    {"rxtot", "RXTOT", "RXTOT"},
    {"rxd", "RXD", "RXD"},
    {"sleep", "SLEEP", "SLEEP", Cut::Tail, false, true, "n/a"},
    {"lpmhold", "LPMHOLD", "LPMHOLD"},
    {"addr", "ADDR", "ADDR"},
    {"csaddr", "CSADDR", "CSADDR", Cut::Tail, true, true, nullptr, "CSADDR NONE"},
    {"hoptime", "HOPTIME", "HOPTIME", Cut::Tail, true},
    {"skip", "SKIP", "SKIP", Cut::Tail, true},
    {"lpm", "LPM", "LPM", Cut::Tail, true},
    {"repeat", "REPEAT", "REPEAT", Cut::Tail, true},
    {"retry", "RETRY", "RETRY", Cut::Tail, true},
    {"fec", "FEC", "FEC", Cut::Tail, true},
    {"buff", "BUFF", "BUFF", Cut::Tail, true},
    {"saf", "SAF", "SAF", Cut::Tail, true},
    {"xaddr", "XADDR", "XADDR"},
    {"xmap", "XMAP", "XMAP"},
    {"xrssi", "XRSSI", "XRSSI"},
    {"xpri", "XPRI", "XPRI", Cut::Tail, false, false},
    {"dtype", "DTYPE", "DTYPE", Cut::Tail, false, false},
    {"dlink", "DLINK", "DLINK", Cut::Dlink, false, false},
    {"options", "OPTIONS", "Diagnostics", Cut::Tail, false, false},
};
// clang-format on

// The characters from position `from` up to, not including, the last three of the reply.
std::ptrdiff_t TailLength(const std::string& reply, std::size_t from) {
  return static_cast<std::ptrdiff_t>(reply.size()) - static_cast<std::ptrdiff_t>(from) - 2;
}

std::string MustCut(const std::string& reply, std::size_t from, std::ptrdiff_t length) {
  auto text = Mid(reply, static_cast<std::ptrdiff_t>(from), length);
  if (!text) throw RunFailed{"A reply of the radio can't be read."};
  return *text;
}

std::string TailCut(const std::string& reply, std::size_t from) {
  return MustCut(reply, from, TailLength(reply, from));
}

std::string DlinkLines(const std::string& reply, std::size_t from) {
  const std::size_t lastBlank = reply.rfind(' ') + 1;  // 0 without one
  const auto length = static_cast<std::ptrdiff_t>(lastBlank) - static_cast<std::ptrdiff_t>(from);
  return MustCut(reply, from, length) + "\r\n" +
         (Contains(reply, "(ON)") ? "DLINK ON" : "DLINK OFF");
}

}  // namespace

std::span<const SavedSetting> SavedSettings() { return settings; }

std::optional<std::string> CutSetting(const SavedSetting& row, const std::string& original) {
  constexpr std::size_t shortestOwner = 6;
  constexpr std::size_t lineEnd = 2;
  std::string reply = original;
  if (row.Way == Cut::Owner) {
    if (reply.size() < shortestOwner) return std::nullopt;
    return std::string(row.Command) + " " + TailCut(reply, lineEnd + 1);
  }
  if (row.Way == Cut::AlarmMask || row.Way == Cut::NoColon) std::erase(reply, ':');
  const std::size_t at = FindAnyCase(reply, row.Word);
  if (at == 0) {
    if (row.LineWithout == nullptr) return std::nullopt;
    return row.LineWithout;
  }
  if (row.NotWith != nullptr && Contains(reply, row.NotWith)) return std::nullopt;
  switch (row.Way) {
    case Cut::SixWide:
      return MustCut(reply, at, 6);
    case Cut::TenWide:
      return MustCut(reply, at, 10);
    case Cut::AlarmMask:
      return "A" + TailCut(reply, at);
    case Cut::Dlink:
      return DlinkLines(reply, at);
    case Cut::Owner:
    case Cut::Tail:
    case Cut::NoColon:
      break;
  }
  return TailCut(reply, at);
}

}  // namespace quillmark
