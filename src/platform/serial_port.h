#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

namespace quillmark {

// A failure of the serial control. `Number` is 8005 when a port cannot be opened (missing, busy or
// forbidden), 8018 when a closed port is written to; anything else is the system's own trouble.
// what() is the system's error text; `Details` tells the cause and the cure in full sentences.
class SerialError : public std::runtime_error {
 public:
  static constexpr int PortNotAvailable = 8005;
  static constexpr int PortNotOpen = 8018;

  SerialError(int number, const std::string& text, std::string details = {})
      : std::runtime_error(text), Number(number), Details(std::move(details)) {}

  int Number;
  std::string Details;
};

// The code of the event that OnComm reports.
namespace comm {
constexpr int Send = 1;
constexpr int Receive = 2;
constexpr int CtsChange = 3;
constexpr int DsrChange = 4;
constexpr int CarrierChange = 5;
constexpr int Ring = 6;
constexpr int Break = 1001;
constexpr int FramingError = 1004;
constexpr int OverrunError = 1006;
constexpr int ReceiveBufferOverflow = 1008;
constexpr int ParityError = 1009;
constexpr int PortVanished = 1999;  // the device went away: the layer has closed the port itself

constexpr bool IsError(int code) { return code > 1000; }
}  // namespace comm

// One serial control, as the logic needs it. The main window owns one (MSComm1), the store and
// restore window another. Implementations move bytes while the logic sleeps, keep at most the last
// 1 MiB of input, and call OnComm from the event loop only: once for each arrival that is not yet
// announced, and for changes and errors of the line, as far as the driver tells them. Input that
// was taken meanwhile raises nothing. A line error that happens while OnComm reports another one
// (its handler may show a box) is dropped. A port that vanishes closes itself and is reported once,
// with comm::PortVanished.
class SerialPort {
 public:
  static constexpr std::size_t InputLimit = 1024 * 1024;  // bytes
  static constexpr std::size_t OutputSize = 512;          // bytes

  virtual ~SerialPort() = default;

  // Number of the port, 1 to 16. Changing it on an open port fails with a SerialError.
  virtual int CommPort() const = 0;
  virtual void SetCommPort(int number) = 0;

  // "19200,N,8,1": baud, parity, data bits, stop bits. On an open port what is still to be sent
  // goes out first, for 500 ms at most.
  virtual std::string Settings() const = 0;
  virtual void SetSettings(const std::string& settings) = 0;

  // 0: no handshaking; the only one in use.
  virtual int Handshaking() const = 0;
  virtual void SetHandshaking(int handshaking) = 0;

  // Opening throws SerialError 8005. Closing drains the output first, for 500 ms at most, and does
  // not throw. Input from before an opening is gone.
  virtual bool PortOpen() const = 0;
  virtual void SetPortOpen(bool open) = 0;

  // Queues the bytes unchanged. Throws SerialError 8018 on a closed port.
  virtual void Output(const std::string& bytes) = 0;
  // Bytes that have not left yet, those that the line's rate still holds back included.
  virtual std::size_t OutBufferCount() const = 0;
  virtual std::size_t OutBufferSize() const { return OutputSize; }

  // Takes all bytes that have arrived.
  virtual std::string Input() = 0;
  // Announces what has arrived once more, for a handler of OnComm that left it where it was.
  virtual void AnnounceAgain() = 0;
  // The code of the event being reported.
  virtual int CommEvent() const = 0;

  std::function<void()> OnComm;
};

}  // namespace quillmark
