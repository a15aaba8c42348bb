#pragma once

#include <deque>
#include <optional>
#include <string>

#include "sim/sim_time.h"

namespace quillmark::sim {

// The radio's way in: makes lines of the bytes that are typed, and keeps what comes while the radio
// is busy with an earlier line, 256 bytes at most. Owned by SimRadio, which says when a byte has
// its turn and when it is echoed: a byte may be echoed long before it has its turn.
class SimInput {
 public:
  // A byte that has arrived at the radio.
  struct Byte {
    Time At;  // when it had wholly arrived
    char Value;
    bool Shown = false;         // Show has been asked about it
    bool LineEndShown = false;  // it is a carriage return whose line end has been echoed
  };

  // Keeps a byte for its turn. Null when there is no room: the byte is lost, and counted.
  Byte* Keep(const Byte& byte);
  std::optional<Byte> Next();
  bool Empty() const { return waiting.empty(); }
  int Lost() const { return lost; }
  // Forgets what waits and what was typed so far.
  void Clear();

  // What the terminal is shown for the next byte: the byte itself, a line end, or nothing.
  std::string Show(char byte);
  // The number of the command that the next byte to be shown belongs to, from 1.
  int ShownCommand() const { return shownCommands + 1; }
  // A byte has its turn. A carriage return gives the line that it ends.
  std::optional<std::string> Take(char byte);
  // Lines that had their turn and were not empty, since the start.
  int Commands() const { return commands; }

 private:
  std::deque<Byte> waiting;
  std::string shownLine;  // as the terminal shows it
  std::string line;       // of the bytes that had their turn
  int shownCommands = 0;
  int commands = 0;
  int lost = 0;
};

}  // namespace quillmark::sim
