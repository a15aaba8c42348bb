#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/serial_port.h"
#include "processor_time.h"

namespace quillmark::bench {

// Something sent, and all that was received before the next was.
struct Exchange {
  Moment SentAt;
  std::string Sent;
  std::string Received{};
  int Arrivals = 0;  // in how many pieces that came
};

// A serial port that remembers what passes through it, and when. The logic has it in place of the
// port that it wraps.
class RecordedPort : public SerialPort {
 public:
  explicit RecordedPort(SerialPort& wrapped) : port(wrapped) {
    port.OnComm = [this] {
      if (OnComm) OnComm();
    };
  }
  ~RecordedPort() override { port.OnComm = nullptr; }

  const std::vector<Exchange>& Exchanges() const { return exchanges; }
  void Forget() { exchanges.clear(); }
  // Called in front of each sending.
  std::function<void()> OnOutput;

  int CommPort() const override { return port.CommPort(); }
  void SetCommPort(int number) override { port.SetCommPort(number); }
  std::string Settings() const override { return port.Settings(); }
  void SetSettings(const std::string& settings) override { port.SetSettings(settings); }
  int Handshaking() const override { return port.Handshaking(); }
  void SetHandshaking(int handshaking) override { port.SetHandshaking(handshaking); }
  bool PortOpen() const override { return port.PortOpen(); }
  void SetPortOpen(bool open) override { port.SetPortOpen(open); }
  std::size_t OutBufferCount() const override { return port.OutBufferCount(); }
  int CommEvent() const override { return port.CommEvent(); }
  void AnnounceAgain() override { port.AnnounceAgain(); }

  void Output(const std::string& bytes) override {
    if (OnOutput) OnOutput();
    exchanges.push_back({Now(), bytes});
    port.Output(bytes);
  }

  std::string Input() override {
    std::string taken = port.Input();
    if (!exchanges.empty() && !taken.empty()) {
      exchanges.back().Received += taken;
      ++exchanges.back().Arrivals;
    }
    return taken;
  }

 private:
  SerialPort& port;
  std::vector<Exchange> exchanges;
};

}  // namespace quillmark::bench
