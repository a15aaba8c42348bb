#include "config/saved_settings.h"

#include <algorithm>

#include "config/direct_run.h"
#include "text/text.h"

namespace quillmark {

namespace {

using Cut = SavedSetting::Cut;

// clang-format off
constexpr SavedSetting settings[] = {
    {.Command = "unit", .Panel = "UNIT", .Word = "UNIT"},
    {.Command = "OWN", .Panel = "OWN", .Word = nullptr, .Way = Cut::Owner},
    {.Command = "OWM", .Panel = "OWM", .Word = nullptr, .Way = Cut::Owner},
    {.Command = "mode", .Panel = "MODE", .Word = "MODE", .Way = Cut::SixWide},
    {.Command = "pwr", .Panel = "PWR", .Word = "PWR", .Way = Cut::TenWide},
    {.Command = "baud", .Panel = "BAUD", .Word = "BAUD", .Dot = false},
    {.Command = "port", .Panel = "PORT", .Word = "PORT"},
    {.Command = "device", .Panel = "DEVICE", .Word = "DEVICE"},
    {.Command = "amask", .Panel = nullptr, .Word = "MASK", .Way = Cut::AlarmMask},
    {.Command = "asense", .Panel = "ASENSE", .Word = "ALARM", .Way = Cut::NoColon},
    {.Command = "cts", .Panel = "CTS", .Word = "CTS"},
    {.Command = "ctshold", .Panel = "CTSHOLD", .Word = "CTSHOLD", .NotWith = "n/a"},
    {.Command = "rxtot", .Panel = "RXTOT", .Word = "RXTOT"},
    {.Command = "rxd", .Panel = "RXD", .Word = "RXD", .Since = 300},
    {.Command = "sleep", .Panel = "SLEEP", .Word = "SLEEP", .NotWith = "n/a"},
    {.Command = "lpmhold", .Panel = "LPMHOLD", .Word = "LPMHOLD", .Since = 320},
    {.Command = "addr", .Panel = "ADDR", .Word = "ADDR"},
    {.Command = "csaddr", .Panel = "CSADDR", .Word = "CSADDR", .MasterOnly = true,
     .LineWithout = "CSADDR NONE", .Since = 300},
    {.Command = "hoptime", .Panel = "HOPTIME", .Word = "HOPTIME", .MasterOnly = true},
    {.Command = "skip", .Panel = "SKIP", .Word = "SKIP", .MasterOnly = true},
    {.Command = "lpm", .Panel = "LPM", .Word = "LPM", .MasterOnly = true, .Since = 320},
    {.Command = "repeat", .Panel = "REPEAT", .Word = "REPEAT", .MasterOnly = true},
    {.Command = "retry", .Panel = "RETRY", .Word = "RETRY", .MasterOnly = true},
    {.Command = "fec", .Panel = "FEC", .Word = "FEC", .MasterOnly = true},
    {.Command = "buff", .Panel = "BUFF", .Word = "BUFF", .MasterOnly = true},
    {.Command = "saf", .Panel = "SAF", .Word = "SAF", .MasterOnly = true},
    {.Command = "xaddr", .Panel = "XADDR", .Word = "XADDR"},
    {.Command = "xmap", .Panel = "XMAP", .Word = "XMAP", .Since = 200},
    {.Command = "xrssi", .Panel = "XRSSI", .Word = "XRSSI", .Since = 200},
    {.Command = "xpri", .Panel = "XPRI", .Word = "XPRI", .Dot = false, .Since = 200},
    {.Command = "dtype", .Panel = "DTYPE", .Word = "DTYPE", .Dot = false, .Since = 200},
    {.Command = "dlink", .Panel = "DLINK", .Word = "DLINK", .Way = Cut::Dlink, .Dot = false,
     .Since = 200},
    {.Command = "options", .Panel = "OPTIONS", .Word = "Diagnostics", .Dot = false},
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
      return MustCut(reply, at, std::min<std::ptrdiff_t>(6, TailLength(reply, at)));
    case Cut::TenWide:
      return MustCut(reply, at, std::min<std::ptrdiff_t>(10, TailLength(reply, at)));
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
