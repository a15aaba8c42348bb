#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/port_list.h"
#include "platform/serial_port.h"
#include "sim/bench/virtual_loop.h"
#include "sim/sim_line.h"

namespace quillmark::sim {

class VirtualPort;

// The serial sockets of a virtual machine, numbered 1 to 16: what is plugged in, and who holds it.
class VirtualSockets : public PortList {
 public:
  // What a socket of the machine holds, and who may open it.
  enum class State { Empty, Free, TakenByOthers, Forbidden };
  struct Socket {
    State Is = State::Empty;
    SimLine* Line = nullptr;  // where it is Free; outlives its being plugged in
    VirtualPort* Holder = nullptr;
  };

  Socket& At(int number) { return sockets.at(static_cast<std::size_t>(number - 1)); }
  void Plug(int number, SimLine& line) { At(number) = {State::Free, &line, At(number).Holder}; }
  // Pulls the adapter: whoever has the port open loses it.
  void Unplug(int number) { At(number).Is = State::Empty; }
  std::vector<PortDescription> Ports() override;
  bool Present(int number) override { return At(number).Is != State::Empty; }

 private:
  std::array<Socket, 16> sockets;
};

// The serial control on virtual time, with the contract of SerialPort.
class VirtualPort : public SerialPort, private TimeSource {
 public:
  VirtualPort(VirtualLoop& loop, VirtualSockets& sockets);
  ~VirtualPort() override;

  int CommPort() const override { return number; }
  void SetCommPort(int next) override;
  std::string Settings() const override { return settings; }
  void SetSettings(const std::string& next) override;
  int Handshaking() const override { return handshaking; }
  void SetHandshaking(int next) override { handshaking = next; }
  bool PortOpen() const override { return open; }
  void SetPortOpen(bool next) override;
  void Output(const std::string& bytes) override;
  std::size_t OutBufferCount() const override;
  std::string Input() override;
  void AnnounceAgain() override;
  int CommEvent() const override { return commEvent; }

  // Reports a code of the serial control, a framing error (1004) say.
  void Raise(int code);
  // A far end that takes nothing: what is sent from now on stays in the output buffer.
  void HoldOutput(bool hold) { holding = hold; }
  // The n-th opening from now, counted from 1, fails as if another program had been quicker.
  void FailOpening(int n) { failOpening = n; }
  // The next changes of the settings of an open port fail, so many of them.
  void FailSettings(int times) { failSettings = times; }
  // Every opening so far, those that failed not counted.
  int Openings() const { return openings; }

 private:
  std::optional<Duration> NextEvent() const override;
  void Advance(Duration now) override;
  void Open();
  void Close();
  void Drain();
  void Vanish();
  void TakeIn(const std::string& bytes);
  void Announce(int code, std::uint64_t ofOpening);
  int Baud() const;
  SimLine* Line() const;

  VirtualLoop& loop;
  VirtualSockets& sockets;
  int number = 1;
  std::string settings = "9600,N,8,1";
  int handshaking = 0;
  bool open = false;
  bool holding = false;
  bool announced = false;
  bool overflowed = false;
  int commEvent = 0;
  int openings = 0;
  int failOpening = 0;
  int failSettings = 0;
  bool draining = false;
  std::uint64_t opening = 0;  // to tell events of a former opening
  std::string input;
  std::string held;
};

}  // namespace quillmark::sim
