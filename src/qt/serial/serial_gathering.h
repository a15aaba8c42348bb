#pragma once

#include <QElapsedTimer>
#include <QtGlobal>

namespace quillmark {

// How long the bytes of a reply are gathered before the logic gets them. Short replies are handed
// over soon, long ones in larger parts. SerialWorker owns one and tells it what is sent and what
// comes in.
class GatheringTime {
 public:
  // How long to gather, and how long to sleep between two looks. Microseconds.
  struct Span {
    qint64 Limit;
    unsigned long Nap;
  };

  // Something is sent: what comes next begins a reply.
  void NoteSending() { stream.invalidate(); }
  // Bytes have come.
  Span NoteArrival();

 private:
  QElapsedTimer stream;  // since bytes began to come in a row
  QElapsedTimer lastArrival;
};

}  // namespace quillmark
