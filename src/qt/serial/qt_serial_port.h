#pragma once

#include <QObject>
#include <QThread>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/serial_port.h"
#include "qt/serial/serial_line.h"
#include "qt/serial/serial_worker.h"

namespace quillmark {

class QtEventLoop;

// A serial control over a real device. The device lives on a thread of its own (SerialWorker), with
// locked queues between; every call here, and OnComm, is on the logic's thread.
class QtSerialPort : public QObject, public SerialPort {
  Q_OBJECT

 public:
  // `deviceOf` gives the path of the device behind a number, or an empty text. `status` tells of an
  // open device's line.
  QtSerialPort(QtEventLoop& events, std::function<std::string(int)> deviceOf,
               std::shared_ptr<const LineStatusSource> status = SystemLineStatus());
  ~QtSerialPort() override;

  int CommPort() const override { return number; }
  void SetCommPort(int nextNumber) override;
  std::string Settings() const override { return settings; }
  void SetSettings(const std::string& text) override;
  int Handshaking() const override { return handshaking; }
  void SetHandshaking(int next) override { handshaking = next; }
  bool PortOpen() const override;
  void SetPortOpen(bool open) override;
  void Output(const std::string& bytes) override;
  std::size_t OutBufferCount() const override;
  std::string Input() override;
  void AnnounceAgain() override;
  int CommEvent() const override { return commEvent; }

 private:
  // The thread, with its worker. Ends with the port; one that hangs in the system is left behind.
  struct Engine {
    std::shared_ptr<SerialQueues> Queues = std::make_shared<SerialQueues>();
    QThread Thread;
    SerialWorker* Worker = nullptr;
  };

  void StartEngine();
  void StopEngine();
  void LeaveEngineBehind();
  void OpenDevice();
  void CloseDevice();
  void Drain();
  void WakeWhenDrained();
  void FinishDrained();
  Duration UntilDrained() const;
  std::size_t WithDriver() const;
  void Announce(quint64 session);
  void Report(quint64 session, int event);
  void Raise(int event, quint64 session);

  // Runs `call` on the worker's thread and waits for it; nothing when it takes too long.
  template <class Result>
  std::optional<Result> Ask(std::function<Result(SerialWorker&)> call);

  QtEventLoop& events;
  std::function<std::string(int)> deviceOf;
  std::shared_ptr<const LineStatusSource> status;
  std::unique_ptr<Engine> engine;
  QTimer drained;  // wakes the loop when the last byte has left
  LinePace pace;
  std::string settings = "19200,N,8,1";
  LineSettings line;
  int number = 1;
  int handshaking = 0;
  int commEvent = 0;
};

}  // namespace quillmark
