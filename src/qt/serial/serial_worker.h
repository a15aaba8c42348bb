#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "qt/serial/serial_gathering.h"
#include "qt/serial/serial_line.h"
#include "qt/serial/serial_watch.h"

class QSerialPort;
class QTimer;

namespace quillmark {

// What the logic's thread and the worker share. All of it is read and written under Lock. A session
// is one opening of the port; what belongs to an earlier session is dropped.
struct SerialQueues {
  std::mutex Lock;
  std::condition_variable OutputMoved;
  std::uint64_t Session = 0;  // 0 after a closing
  bool Open = false;
  int Handle = -1;          // of the open device, for questions to its driver
  std::string Input;        // arrived and not yet taken
  bool Announced = false;   // an announcement is on its way to the logic
  bool Overflowed = false;  // input was lost since it was last taken
  std::string Outgoing;     // not yet fetched by the worker
  std::size_t Unsent = 0;   // bytes not yet with the driver, Outgoing included
};

// How an opening ended.
struct OpenOutcome {
  // Whether there is a session now, and if not, why.
  enum class Kind { Opened, Busy, Failed };
  Kind Ended = Kind::Failed;
  std::string Reason;  // the system's text, of a failure
};

// The serial device on a thread of its own, so that bytes move while the logic sleeps. Created on
// the logic's thread and moved to its own; the calls run there, invoked by QtSerialPort.
class SerialWorker : public QObject {
  Q_OBJECT

 public:
  SerialWorker(std::shared_ptr<SerialQueues> queues,
               std::shared_ptr<const LineStatusSource> status);
  ~SerialWorker() override;

  // The device is opened with an empty input; the queues start anew.
  OpenOutcome Open(const std::string& device, const LineSettings& settings);
  bool Apply(const LineSettings& settings);
  void Close();
  // Writes what stands in the queues' Outgoing.
  void SendOutgoing();
  // The logic has dealt with a line error that it was told of by Reported.
  void ErrorAnswered(quint64 session);

  // Called from the logic's thread when it waits for a call no longer: whatever that call opens is
  // closed again.
  void Abandon() { abandoned = true; }

 signals:
  void Arrived(quint64 session);
  // A change or an error of the line, by its code.
  void Reported(quint64 session, int code);
  void Vanished(quint64 session);
  // Everything is with the driver.
  void AllWritten(quint64 session);

 private:
  void Receive();
  void Gather();
  bool PromptIsLast();
  void LookAtLine();
  void Report(int code);
  void CountWritten(qint64 bytes);
  void NoteError(int error);
  void LookForHangUp();
  void JudgeError();
  bool HungUp() const;
  bool Forgivable();
  void GoneAway();
  void StartSession();
  void StartWatch();
  void EndSession();
  bool TakeFlock() const;

  std::shared_ptr<SerialQueues> queues;
  std::unique_ptr<QSerialPort> port;
  std::unique_ptr<QTimer> hangUpCheck;
  std::unique_ptr<QTimer> lineCheck;
  LineWatch watch;
  int unanswered = 0;  // line errors that the logic was told of and has not dealt with yet
  std::atomic<bool> abandoned = false;
  bool failed = false;      // a fatal error was seen; until it is judged, later ones do not count
  std::string path;         // of the open device
  QElapsedTimer errorSpan;  // since the first of the errors that were forgiven in a row
  int forgiven = 0;         // in that span
  GatheringTime gatheringTime;
  bool gathering = false;
};

}  // namespace quillmark
