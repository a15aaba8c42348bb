#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/line_faults.h"
#include "sim/sim_radio.h"
#include "sim/sim_time.h"

namespace quillmark::sim {

// What went over a line: every byte in both directions with its time, the last 4 MiB of each.
class LineLog {
 public:
  // What went one way.
  struct Direction {
    std::string Bytes;
    std::vector<Time> Times;  // when each byte had wholly arrived
  };

  const Direction& ToRadio() const { return toRadio; }  // as the host sent it, faults or not
  const Direction& ToHost() const { return toHost; }    // as it came, faults included
  const std::string& Sent() const { return toRadio.Bytes; }
  const std::string& Received() const { return toHost.Bytes; }
  void SetLimit(std::size_t bytes) { limit = bytes; }

 private:
  friend class SimLine;
  void Add(Direction& direction, Time at, char byte);

  Direction toRadio;
  Direction toHost;
  std::size_t limit = 4 << 20;
};

// The radio on its line: paces both directions and plays the faults. The virtual serial port uses
// it on virtual time, the pseudo-terminal program on real time. It takes the radio's hooks for
// itself. Times given to it never go back.
class SimLine {
 public:
  explicit SimLine(SimRadio& itsRadio, LineFaults faults = {});
  ~SimLine();
  SimLine(const SimLine&) = delete;
  SimLine& operator=(const SimLine&) = delete;

  // Queues bytes behind what is still on its way; each arrives 10 bit times after the one before.
  void HostSends(Time at, std::string_view bytes, int hostBaud);
  // Tells at which baud the host listens, when that changes without a byte sent.
  void HostListens(int hostBaud) { radio.HostListens(hostBaud); }
  // Of what the host sent: the bytes that have not wholly arrived by then.
  std::size_t HostBytesPending(Time now) const;
  // When the last of them will have; nothing if none is on its way.
  std::optional<Time> HostDrained() const;
  // When Advance has something to do next.
  std::optional<Time> NextEvent() const;
  // Plays everything up to then; gives the bytes that reach the host.
  std::string Advance(Time until);
  // The host closed or reopened its end: bytes on their way to it are lost.
  void HostClears() { radio.DropOutput(); }

  // A line that hung up carries nothing more, either way.
  bool HungUp() const { return hungUp; }
  void HangUp() { hungUp = true; }
  // The line is back, the faults that hung it up are taken out. What was on it is lost.
  void Restore();

  // May be changed at any time.
  LineFaults& Faults() { return player.Faults(); }
  // How many bytes of the host have arrived since the start: what the faults count.
  std::int64_t BytesToRadio() const { return player.BytesToRadio(); }
  const LineLog& Log() const { return log; }
  void SetLogLimit(std::size_t bytes) { log.SetLimit(bytes); }
  void ClearLog();
  SimRadio& Radio() { return radio; }

 private:
  // A byte of the host that is on its way to the radio.
  struct Arrival {
    Time At;
    char Byte;
    int Baud;
  };

  void Step(Time now, std::string& forHost);
  void Arrive(const Arrival& arrival);
  void Deliver(Time now, std::string_view bytes, std::string& forHost);
  void LookForCommands();

  SimRadio& radio;
  FaultPlayer player;
  LineLog log;
  BytePacer pacer;
  std::deque<Arrival> arrivals;
  int commands = 0;  // how many of the radio's have been looked at
  bool hungUp = false;
};

}  // namespace quillmark::sim
