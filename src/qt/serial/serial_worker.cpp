#include "qt/serial/serial_worker.h"

#include <poll.h>
#include <sys/file.h>

#include <QSerialPort>
#include <QThread>
#include <QTimer>
#include <algorithm>

#include "platform/serial_port.h"
#include "qt/serial/port_trouble.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

// Counts the openings of all ports, so that no two of them are ever taken for each other.
std::atomic<std::uint64_t> lastSession = 0;

constexpr int hangUpCheckInterval = 1000;  // ms
constexpr int lineCheckInterval = 250;     // ms
// So many errors in a span are taken for trouble with another program, more for a dead device.
constexpr int mostForgiven = 5;
constexpr qint64 longestErrorSpan = 1000;  // ms
constexpr char prompt = '>';
// The oldest input is cut off in pieces, so that a flood is not moved in memory at each arrival.
constexpr std::size_t inputSlack = 64 * 1024;  // bytes

bool Fatal(QSerialPort::SerialPortError error) {
  switch (error) {
    case QSerialPort::ResourceError:
    case QSerialPort::ReadError:
    case QSerialPort::WriteError:
    case QSerialPort::DeviceNotFoundError:
    case QSerialPort::PermissionError:
      return true;
    default:
      return false;
  }
}

QSerialPort::Parity ParityOf(char letter) {
  if (letter == 'E') return QSerialPort::EvenParity;
  return letter == 'O' ? QSerialPort::OddParity : QSerialPort::NoParity;
}

bool Configure(QSerialPort& port, const LineSettings& settings) {
  bool done = port.setBaudRate(settings.Baud);
  done = port.setParity(ParityOf(settings.Parity)) && done;
  done = port.setDataBits(static_cast<QSerialPort::DataBits>(settings.DataBits)) && done;
  done = port.setStopBits(settings.StopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) &&
         done;
  return port.setFlowControl(QSerialPort::NoFlowControl) && done;
}

}  // namespace

SerialWorker::SerialWorker(std::shared_ptr<SerialQueues> shared,
                           std::shared_ptr<const LineStatusSource> status)
    : queues(std::move(shared)), watch(std::move(status)) {}
SerialWorker::~SerialWorker() = default;

OpenOutcome SerialWorker::Open(const std::string& device, const LineSettings& settings) {
  path = device;
  port = std::make_unique<QSerialPort>();
  port->setPortName(QString::fromStdString(device));
  Configure(*port, settings);
  if (!port->open(QIODevice::ReadWrite)) {
    const bool busy = port->error() == QSerialPort::PermissionError;
    const std::string reason = port->errorString().toStdString();
    port.reset();
    return {busy ? OpenOutcome::Kind::Busy : OpenOutcome::Kind::Failed, reason};
  }
  if (!TakeFlock()) {
    port.reset();
    return {OpenOutcome::Kind::Busy, {}};
  }
  // What came before the opening belongs to no session.
  port->clear();
  // Not every device has these lines; a pseudo-terminal refuses.
  port->setDataTerminalReady(true);
  port->setRequestToSend(true);
  StartSession();
  if (abandoned) Close();
  return {OpenOutcome::Kind::Opened, {}};
}

// Programs that know nothing of lock files respect this one.
bool SerialWorker::TakeFlock() const { return flock(port->handle(), LOCK_EX | LOCK_NB) == 0; }

void SerialWorker::StartSession() {
  failed = false;
  errorSpan.invalidate();
  connect(port.get(), &QSerialPort::readyRead, this, &SerialWorker::Receive);
  connect(port.get(), &QSerialPort::bytesWritten, this, &SerialWorker::CountWritten);
  connect(port.get(), &QSerialPort::errorOccurred, this, &SerialWorker::NoteError);
  hangUpCheck = std::make_unique<QTimer>();
  connect(hangUpCheck.get(), &QTimer::timeout, this, &SerialWorker::LookForHangUp);
  hangUpCheck->start(hangUpCheckInterval);
  StartWatch();

  const std::lock_guard lock(queues->Lock);
  queues->Session = ++lastSession;
  queues->Open = true;
  queues->Handle = port->handle();
  queues->Input.clear();
  queues->Announced = false;
  queues->Overflowed = false;
  queues->Outgoing.clear();
  queues->Unsent = 0;
}

void SerialWorker::EndSession() {
  const std::lock_guard lock(queues->Lock);
  queues->Open = false;
  queues->Handle = -1;
  queues->Outgoing.clear();
  queues->Unsent = 0;
  queues->OutputMoved.notify_all();
}

bool SerialWorker::Apply(const LineSettings& settings) {
  if (port == nullptr || !Configure(*port, settings)) return false;
  if (watch.Tells()) watch.Start(port->handle());
  return true;
}

void SerialWorker::Close() {
  EndSession();
  hangUpCheck.reset();
  lineCheck.reset();
  if (port == nullptr) return;
  port->disconnect(this);
  port->close();
  port.reset();
}

void SerialWorker::SendOutgoing() {
  std::string bytes;
  {
    const std::lock_guard lock(queues->Lock);
    bytes.swap(queues->Outgoing);
  }
  gatheringTime.NoteSending();
  if (port != nullptr && !bytes.empty()) {
    port->write(bytes.data(), static_cast<qint64>(bytes.size()));
  }
}

void SerialWorker::CountWritten(qint64 bytes) {
  quint64 session = 0;
  {
    const std::lock_guard lock(queues->Lock);
    const auto written = static_cast<std::size_t>(bytes);
    queues->Unsent -= std::min(written, queues->Unsent);
    if (queues->Unsent != 0) return;
    session = queues->Session;
    queues->OutputMoved.notify_all();
  }
  emit AllWritten(session);
}

// Drivers hand bytes over one by one; taken a few at a time they cost a fraction. What comes moves
// into the port's own buffer here. A reply's prompt, or a silence, ends the gathering at once.
void SerialWorker::Gather() {
  const GatheringTime::Span span = gatheringTime.NoteArrival();
  QElapsedTimer spent;
  spent.start();
  while (spent.nsecsElapsed() / 1000 < span.Limit && !PromptIsLast()) {
    QThread::usleep(span.Nap);
    if (!port->waitForReadyRead(0)) return;
  }
}

bool SerialWorker::PromptIsLast() { return port->peek(port->bytesAvailable()).endsWith(prompt); }

void SerialWorker::Receive() {
  if (gathering) return;
  gathering = true;
  Gather();
  gathering = false;
  const QByteArray arrived = port->readAll();
  if (arrived.isEmpty()) return;
  bool announce = false;
  bool overflow = false;
  quint64 session = 0;
  {
    const std::lock_guard lock(queues->Lock);
    std::string& input = queues->Input;
    input.append(arrived.data(), static_cast<std::size_t>(arrived.size()));
    if (input.size() > SerialPort::InputLimit) {
      overflow = !queues->Overflowed;
      queues->Overflowed = true;
      if (input.size() > SerialPort::InputLimit + inputSlack) {
        input.erase(0, input.size() - SerialPort::InputLimit);
      }
    }
    announce = !queues->Announced;
    queues->Announced = true;
    session = queues->Session;
  }
  if (overflow) Report(comm::ReceiveBufferOverflow);
  if (announce) emit Arrived(session);
}

// A device that tells nothing costs no timer.
void SerialWorker::StartWatch() {
  unanswered = 0;
  watch.Start(port->handle());
  if (!watch.Tells()) return;
  lineCheck = std::make_unique<QTimer>();
  connect(lineCheck.get(), &QTimer::timeout, this, &SerialWorker::LookAtLine);
  lineCheck->start(lineCheckInterval);
}

// Errors are dropped as long as the user has not answered the box of an earlier one.
void SerialWorker::LookAtLine() {
  const bool answered = unanswered == 0;
  for (const int code : watch.Look()) {
    if (answered || !comm::IsError(code)) Report(code);
  }
  if (!watch.Tells()) lineCheck->stop();
}

void SerialWorker::Report(int code) {
  quint64 session = 0;
  {
    const std::lock_guard lock(queues->Lock);
    session = queues->Session;
  }
  if (comm::IsError(code)) ++unanswered;
  emit Reported(session, code);
}

// What was counted up to now belongs to the box that has just been answered.
void SerialWorker::ErrorAnswered(quint64 session) {
  {
    const std::lock_guard lock(queues->Lock);
    if (queues->Session != session) return;
  }
  if (lineCheck != nullptr) LookAtLine();
  --unanswered;
}

void SerialWorker::NoteError(int error) {
  if (failed || !Fatal(static_cast<QSerialPort::SerialPortError>(error))) return;
  failed = true;
  // The device must not die inside its own signal.
  QMetaObject::invokeMethod(this, &SerialWorker::JudgeError, Qt::QueuedConnection);
}

// Another program that reads along takes bytes that were announced here: an error, and yet the
// device is well.
void SerialWorker::JudgeError() {
  if (!failed || port == nullptr) return;
  if (HungUp() || !DeviceExists(path) || !Forgivable()) return GoneAway();
  failed = false;
  port->clearError();
  // An error may have ended the wait for bytes and for room; asking for both begins it again.
  Receive();
  port->write("", 0);
}

bool SerialWorker::HungUp() const {
  pollfd device{port->handle(), 0, 0};
  return poll(&device, 1, 0) > 0 && (device.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

bool SerialWorker::Forgivable() {
  if (!errorSpan.isValid() || errorSpan.hasExpired(longestErrorSpan)) {
    errorSpan.start();
    forgiven = 0;
  }
  return ++forgiven <= mostForgiven;
}

// Some systems report nothing at all when the other side hangs up.
void SerialWorker::LookForHangUp() {
  if (HungUp()) NoteError(QSerialPort::ResourceError);
}

void SerialWorker::GoneAway() {
  quint64 session = 0;
  {
    const std::lock_guard lock(queues->Lock);
    session = queues->Session;
  }
  Close();
  emit Vanished(session);
}

}  // namespace quillmark
