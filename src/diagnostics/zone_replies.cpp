#include "diagnostics/zone_replies.h"

#include <string>

#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::size_t completeLength = 516;  // characters, echo and prompt included
constexpr std::size_t valueLength = 8;
constexpr std::size_t firstPlaceOfSkip = 5;  // behind the echo of the command

}  // namespace

bool ZoneDataIsComplete(std::string_view received) {
  return received.size() >= completeLength && Holds(received, "8:RX ERROR");
}

bool ReadZoneCounters(std::string_view received, std::span<const std::string_view> fields,
                      const TakeCounter& take) {
  for (std::size_t zone = 0; zone < ZoneCount; ++zone) {
    std::size_t at = Find(received, std::to_string(zone + 1) + ":");
    if (at == 0) return false;
    for (std::size_t field = 0; field < fields.size(); ++field) {
      at = Find(received, fields[field], at);
      if (at == 0) return false;
      at += fields[field].size() + 1;  // and the separator
      if (at - 1 + valueLength > received.size()) return false;
      const auto number = NumericValue(received.substr(at - 1, valueLength));
      take(
          zone, field,
          number ? std::optional(static_cast<std::int64_t>(RoundHalfEven(*number))) : std::nullopt);
    }
  }
  return true;
}

std::optional<std::vector<std::size_t>> SkippedZones(std::string_view received) {
  const std::size_t word = Find(received, "SKIP", firstPlaceOfSkip);
  if (word == 0) return std::nullopt;
  std::vector<std::size_t> zones;
  if (Find(received, "NONE", word) != 0) return zones;
  for (std::size_t before = Find(received, " ", word); before != 0;
       before = Find(received, ",", before + 1)) {
    const char digit = before < received.size() ? received[before] : '\0';
    if (digit >= '1' && digit <= '8') zones.push_back(static_cast<std::size_t>(digit - '0'));
  }
  return zones;
}

}  // namespace quillmark
