#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "sim/sim_radio.h"
#include "sim/sim_time.h"

namespace quillmark::sim {

// What can go wrong on a line between a host and a radio. A plain table of faults, all off; SimLine
// plays them, tests and the program's options set them. Bytes and commands count from 1 since the
// start of the run; a command is a line that is not empty. 0 means never, where nothing else
// stands.
struct LineFaults {
  std::int64_t SilentFrom = 0;   // neither echo nor reply from this command on
  std::int64_t SilentUntil = 0;  // and up to this one; 0: for good

  std::int64_t DropToHost = 0;  // this byte is lost, comes as another one, or comes twice
  std::int64_t GarbleToHost = 0;
  std::int64_t DoubleToHost = 0;
  std::int64_t DropToRadio = 0;
  std::int64_t GarbleToRadio = 0;
  std::int64_t DoubleToRadio = 0;

  std::int64_t LateReplyAt = 0;  // the reply to this command is late
  std::int64_t LateReplyMs = 0;
  std::int64_t NoPromptAt = 0;       // the reply to this command lacks its prompt
  std::int64_t ExtraBytesAt = 0;     // the reply to this command has ExtraBytes in front
  std::string ExtraBytes = "\x1b?";  // behind the line end of the echo
  std::int64_t DoubleReplyAt = 0;    // the reply to this command comes twice

  std::int64_t HangUpAtByteToHost = 0;   // the line goes dead behind this byte
  std::int64_t HangUpAtByteToRadio = 0;  // the same
  std::int64_t HangUpAtCommand = 0;      // the line goes dead when this command has arrived
  std::int64_t HangUpAtMs = 0;           // the line goes dead at this time

  std::int64_t BabblePerSecond = 0;  // bytes from nowhere, any value, towards the host
  std::int64_t BabbleSeed = 1;
};

// One fault as an option of a program: name, field and explanation.
struct FaultOption {
  std::string_view Name;
  std::int64_t LineFaults::*Field;
  std::string_view Help;
};
std::span<const FaultOption> FaultOptions();

// Plays the faults. SimLine owns it and asks it about every byte and every reply.
class FaultPlayer {
 public:
  explicit FaultPlayer(LineFaults lineFaults) : faults(std::move(lineFaults)) {}

  LineFaults& Faults() { return faults; }

  // What becomes of one byte: none, one or two bytes. Counts it.
  std::string ToHost(char byte);
  std::string ToRadio(char byte);
  std::int64_t BytesToRadio() const { return toRadio; }
  // True if neither echo nor reply of this command goes out.
  bool IsMuted(std::int64_t command) const;
  // Changes a reply on its way out.
  void Change(Reply& reply);
  // True if the line goes dead with this command.
  bool HangsUpAt(std::int64_t command) const { return faults.HangUpAtCommand == command; }
  // True once a byte has passed behind which the line goes dead.
  bool HangUpReached() const;
  std::optional<Time> HangUpTime() const;

  // When the next byte of babble is due after the last one, and that byte.
  std::optional<Time> NextBabble() const;
  char TakeBabble();
  // Without babble so far; if it is switched on later, it starts from here.
  void RestUntil(Time now) {
    if (faults.BabblePerSecond <= 0) lastBabble = now;
  }

 private:
  static std::string Damaged(char byte, std::int64_t number, std::int64_t dropped,
                             std::int64_t garbled, std::int64_t doubled);

  LineFaults faults;
  std::int64_t toHost = 0;
  std::int64_t toRadio = 0;
  Time lastBabble{0};
  std::mt19937 random;
  bool seeded = false;
};

}  // namespace quillmark::sim
