#include "sim/bench/virtual_port.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

namespace quillmark::sim {

namespace {

constexpr Duration longestDrain = Milliseconds(500);

std::string DeviceName(int number) { return "/dev/ttyV" + std::to_string(number); }

}  // namespace

std::vector<PortDescription> VirtualSockets::Ports() {
  std::vector<PortDescription> ports(sockets.size());
  for (std::size_t i = 0; i < sockets.size(); ++i) {
    if (sockets[i].Line == nullptr && sockets[i].Is == State::Empty) continue;
    ports[i] = {DeviceName(static_cast<int>(i) + 1), "virtual line", sockets[i].Is != State::Empty};
  }
  return ports;
}

VirtualPort::VirtualPort(VirtualLoop& itsLoop, VirtualSockets& itsSockets)
    : loop(itsLoop), sockets(itsSockets) {
  loop.AddSource(*this);
}

VirtualPort::~VirtualPort() {
  loop.RemoveSource(*this);
  if (open) Close();
}

SimLine* VirtualPort::Line() const { return open ? sockets.At(number).Line : nullptr; }

int VirtualPort::Baud() const { return std::atoi(settings.c_str()); }

void VirtualPort::SetCommPort(int next) {
  if (open) throw SerialError(8000, "The port's number can't be changed while it is open");
  number = next;
}

void VirtualPort::SetSettings(const std::string& next) {
  if (open) Drain();
  if (open && failSettings > 0) {
    --failSettings;
    throw SerialError(0, "The driver refuses the settings");
  }
  settings = next;
  if (SimLine* line = Line()) line->HostListens(Baud());
}

void VirtualPort::SetPortOpen(bool next) {
  if (next == open) return;
  if (next) {
    Open();
  } else {
    Drain();
    Close();
  }
}

void VirtualPort::Open() {
  using State = VirtualSockets::State;
  const auto fail = [this](const std::string& why) {
    throw SerialError(SerialError::PortNotAvailable, why, DeviceName(number) + ": " + why + ".");
  };
  if (failOpening > 0 && --failOpening == 0) fail("Device or resource busy");
  if (number < 1 || number > 16) fail("There is no such port");
  VirtualSockets::Socket& socket = sockets.At(number);
  if (socket.Is == State::Empty) fail("No such file or directory");
  if (socket.Is == State::Forbidden) fail("Permission denied");
  if (socket.Is == State::TakenByOthers || socket.Holder != nullptr) {
    fail("Device or resource busy");
  }
  socket.Holder = this;
  open = true;
  ++openings;
  ++opening;
  announced = overflowed = false;
  input.clear();
  held.clear();
  socket.Line->Advance(loop.Now());
  socket.Line->HostClears();
  socket.Line->HostListens(Baud());
}

void VirtualPort::Close() {
  sockets.At(number).Holder = nullptr;
  open = false;
  input.clear();
  held.clear();
}

void VirtualPort::Drain() {
  if (!open || OutBufferCount() == 0) return;
  const auto drained = Line()->HostDrained();
  const Duration wait = held.empty() && drained ? *drained - loop.Now() : longestDrain;
  loop.Sleep(std::clamp(wait, Duration::zero(), longestDrain));
}

void VirtualPort::Output(const std::string& bytes) {
  Advance(loop.Now());
  if (!open) throw SerialError(SerialError::PortNotOpen, "The port is not open");
  if (holding) {
    held += bytes;
  } else {
    Line()->HostSends(loop.Now(), bytes, Baud());
  }
}

std::size_t VirtualPort::OutBufferCount() const {
  const SimLine* line = Line();
  return held.size() + (line == nullptr ? 0 : line->HostBytesPending(loop.Now()));
}

std::string VirtualPort::Input() {
  Advance(loop.Now());
  overflowed = false;
  return std::exchange(input, {});
}

void VirtualPort::AnnounceAgain() {
  if (open && !input.empty()) Raise(comm::Receive);
}

std::optional<Duration> VirtualPort::NextEvent() const {
  const SimLine* line = Line();
  return line == nullptr ? std::nullopt : line->NextEvent();
}

void VirtualPort::Advance(Duration now) {
  SimLine* line = Line();
  if (line == nullptr) return;
  TakeIn(line->Advance(now));
  // A wait for the last byte to leave ends at that moment.
  const bool left = line->HostBytesPending(now) == 0;
  if (draining && left) loop.Post([] {});
  draining = !left;
  if (line->HungUp() || sockets.At(number).Is == VirtualSockets::State::Empty) Vanish();
}

void VirtualPort::TakeIn(const std::string& bytes) {
  if (bytes.empty()) return;
  input += bytes;
  if (input.size() > InputLimit) {
    input.erase(0, input.size() - InputLimit);
    if (!overflowed) Raise(comm::ReceiveBufferOverflow);
    overflowed = true;
  }
  if (announced) return;
  announced = true;
  Raise(comm::Receive);
}

void VirtualPort::Vanish() {
  Close();
  Raise(comm::PortVanished);
}

void VirtualPort::Raise(int code) {
  loop.Post([this, code, ofOpening = opening] { Announce(code, ofOpening); });
}

void VirtualPort::Announce(int code, std::uint64_t ofOpening) {
  if (ofOpening != opening) return;
  if (code == comm::Receive) {
    announced = false;
    if (input.empty()) return;
  }
  commEvent = code;
  if (OnComm) OnComm();
}

}  // namespace quillmark::sim
