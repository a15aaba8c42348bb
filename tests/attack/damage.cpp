#include "attack/damage.h"

#include <algorithm>

namespace quillmark::attack {

namespace {

// One byte lost, changed or come twice.
bool OneByteOff(std::string_view whole, std::string_view text) {
  const auto ends = std::mismatch(whole.begin(), whole.end(), text.begin(), text.end());
  const std::string_view left(ends.first, whole.end());
  const std::string_view right(ends.second, text.end());
  if (left.size() == right.size() + 1) return left.substr(1) == right;
  if (left.size() == right.size()) {
    constexpr char garbling = 0x55;
    return (left.front() ^ garbling) == right.front() && left.substr(1) == right.substr(1);
  }
  return left.size() + 1 == right.size() && right.substr(1) == left && !text.empty();
}

// All of it is there, with a few bytes in between.
bool WithNoise(std::string_view whole, std::string_view text) {
  constexpr std::size_t mostNoise = 4;
  if (text.size() < whole.size() || text.size() > whole.size() + mostNoise) return false;
  auto next = whole.begin();
  for (const char c : text) {
    if (next != whole.end() && *next == c) ++next;
  }
  return next == whole.end();
}

}  // namespace

bool MayBecome(std::string_view whole, std::string_view text, Fault::Damage damage) {
  if (whole == text) return true;
  switch (damage) {
    case Fault::Damage::ByteToHost:
      return OneByteOff(whole, text);
    case Fault::Damage::Noise:
      return WithNoise(whole, text);
    case Fault::Damage::None:
    case Fault::Damage::ByteToRadio:
      break;
  }
  return false;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '\r') {
      quoted += "\\r";
    } else if (c == '\n') {
      quoted += "\\n";
    } else if (static_cast<unsigned char>(c) < 32) {
      quoted += '?';
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

}  // namespace quillmark::attack
