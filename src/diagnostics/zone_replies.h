#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quillmark {

// The radio's replies about its eight frequency zones, taken apart for the two windows that poll
// them. Pure functions of the received text; every one takes any text.

constexpr std::size_t ZoneCount = 8;

// Long enough for a whole reply to "ZONE DATA", and its last counter has begun.
bool ZoneDataIsComplete(std::string_view received);

// Told of each counter: the zone from 0, which of the fields that were asked for, and the value;
// no value for a field that is not a number.
using TakeCounter =
    std::function<void(std::size_t zone, std::size_t field, std::optional<std::int64_t> value)>;

// Reads the named fields, in the order in which they stand in the reply, of zone after zone. False
// when one is missing or cut off; those in front of it were told all the same.
bool ReadZoneCounters(std::string_view received, std::span<const std::string_view> fields,
                      const TakeCounter& take);

// The zones, from 1 to 8, that a reply to "skip" lists, in its order and as often as it names them.
// Nothing when the text holds no such reply.
std::optional<std::vector<std::size_t>> SkippedZones(std::string_view received);

}  // namespace quillmark
