#include "qt/serial/serial_line.h"

#include <algorithm>
#include <charconv>

namespace quillmark {

namespace {

constexpr int bitsPerByte = 10;
constexpr std::int64_t microsecondsPerSecond = 1'000'000;

std::int64_t DividedUp(std::int64_t value, std::int64_t by) { return (value + by - 1) / by; }

}  // namespace

std::optional<LineSettings> ReadLineSettings(const std::string& text) {
  LineSettings settings;
  const char* end = text.data() + text.size();
  const auto [rest, failure] = std::from_chars(text.data(), end, settings.Baud);
  if (failure != std::errc() || settings.Baud <= 0) return std::nullopt;
  if (end - rest != 6 || rest[0] != ',' || rest[2] != ',' || rest[4] != ',') return std::nullopt;
  settings.Parity = static_cast<char>(rest[1] & ~0x20);
  settings.DataBits = rest[3] - '0';
  settings.StopBits = rest[5] - '0';
  const bool known = std::string("NEO").find(settings.Parity) != std::string::npos &&
                     settings.DataBits >= 5 && settings.DataBits <= 8 && settings.StopBits >= 1 &&
                     settings.StopBits <= 2;
  return known ? std::optional(settings) : std::nullopt;
}

void LinePace::Start(int nextBaud) {
  baud = nextBaud;
  freeAt = Duration::zero();
}

void LinePace::Queue(Duration now, std::size_t bytes) {
  freeAt = std::max(freeAt, now) + TimeOf(bytes);
}

Duration LinePace::Left(Duration now) const { return std::max(freeAt - now, Duration::zero()); }

std::size_t LinePace::Held(Duration now) const {
  return static_cast<std::size_t>(
      DividedUp(Left(now).count() * baud, bitsPerByte * microsecondsPerSecond));
}

Duration LinePace::TimeOf(std::size_t bytes) const {
  return Duration(static_cast<std::int64_t>(bytes) * bitsPerByte * microsecondsPerSecond / baud);
}

}  // namespace quillmark
