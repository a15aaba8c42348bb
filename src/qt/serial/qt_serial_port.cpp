#include "qt/serial/qt_serial_port.h"

#include <sys/ioctl.h>

#include <future>

#include "qt/base/qt_event_loop.h"
#include "qt/serial/port_trouble.h"

namespace quillmark {

namespace {

constexpr auto longestCall = std::chrono::seconds(3);
constexpr Duration longestDrain = Milliseconds(500);
// A timer counts whole milliseconds, and the loop's poll behind it does so again.
constexpr Duration timerError = Milliseconds(2);
constexpr int invalidSetting = 380;
constexpr int notWhileOpen = 8000;

}  // namespace

QtSerialPort::QtSerialPort(QtEventLoop& eventLoop, std::function<std::string(int)> deviceOfNumber,
                           std::shared_ptr<const LineStatusSource> lineStatus)
    : events(eventLoop), deviceOf(std::move(deviceOfNumber)), status(std::move(lineStatus)) {
  drained.setSingleShot(true);
  drained.setTimerType(Qt::PreciseTimer);
  connect(&drained, &QTimer::timeout, this, &QtSerialPort::FinishDrained);
}

QtSerialPort::~QtSerialPort() {
  CloseDevice();
  StopEngine();
}

void QtSerialPort::StartEngine() {
  if (engine != nullptr) return;
  engine = std::make_unique<Engine>();
  engine->Worker = new SerialWorker(engine->Queues, status);
  engine->Worker->moveToThread(&engine->Thread);
  connect(&engine->Thread, &QThread::finished, engine->Worker, &QObject::deleteLater);
  connect(engine->Worker, &SerialWorker::Arrived, this, &QtSerialPort::Announce);
  connect(engine->Worker, &SerialWorker::AllWritten, this, &QtSerialPort::WakeWhenDrained);
  connect(engine->Worker, &SerialWorker::Reported, this, &QtSerialPort::Report);
  connect(engine->Worker, &SerialWorker::Vanished, this,
          [this](quint64 session) { Raise(comm::PortVanished, session); });
  engine->Thread.start();
}

void QtSerialPort::StopEngine() {
  if (engine == nullptr) return;
  engine->Thread.quit();
  if (!engine->Thread.wait(longestCall)) LeaveEngineBehind();
  engine.reset();
}

// A thread that the system holds cannot be ended; the next opening gets a new one.
void QtSerialPort::LeaveEngineBehind() {
  engine->Worker->Abandon();
  engine->Worker->disconnect(this);
  engine->Thread.quit();
  // Never deleted: its thread may still come back to it.
  [[maybe_unused]] Engine* const left = engine.release();
}

template <class Result>
std::optional<Result> QtSerialPort::Ask(std::function<Result(SerialWorker&)> call) {
  auto answer = std::make_shared<std::promise<Result>>();
  auto future = answer->get_future();
  SerialWorker* worker = engine->Worker;
  QMetaObject::invokeMethod(
      worker, [answer, worker, call = std::move(call)] { answer->set_value(call(*worker)); });
  if (future.wait_for(longestCall) == std::future_status::ready) return future.get();
  LeaveEngineBehind();
  return std::nullopt;
}

void QtSerialPort::SetCommPort(int nextNumber) {
  if (nextNumber == number) return;
  if (PortOpen()) throw SerialError(notWhileOpen, "The port cannot be changed while it is open");
  number = nextNumber;
}

void QtSerialPort::SetSettings(const std::string& text) {
  const auto read = ReadLineSettings(text);
  if (!read) throw SerialError(invalidSetting, "The port settings are not valid");
  if (PortOpen()) {
    Drain();
    const auto applied =
        Ask<bool>([next = *read](SerialWorker& worker) { return worker.Apply(next); });
    if (!applied.value_or(false)) {
      throw SerialError(invalidSetting, "The port does not take these settings");
    }
    pace.Start(read->Baud);
  }
  settings = text;
  line = *read;
}

bool QtSerialPort::PortOpen() const {
  if (engine == nullptr) return false;
  const std::lock_guard lock(engine->Queues->Lock);
  return engine->Queues->Open;
}

void QtSerialPort::SetPortOpen(bool open) {
  if (!open) return CloseDevice();
  if (!PortOpen()) OpenDevice();
}

void QtSerialPort::OpenDevice() {
  const auto fail = [](const PortTrouble& trouble) {
    throw SerialError(SerialError::PortNotAvailable, trouble.Text, trouble.Details);
  };
  const std::string device = deviceOf(number);
  if (device.empty()) fail(NoDevice(number));
  if (const auto trouble = TroubleBeforeOpening(device)) fail(*trouble);

  StartEngine();
  // The real name, so that two links to one device share its lock.
  const auto outcome =
      Ask<OpenOutcome>([real = RealDevice(device), next = line](SerialWorker& worker) {
        return worker.Open(real, next);
      });
  if (!outcome) fail(Hanging(device));
  if (outcome->Ended == OpenOutcome::Kind::Busy) fail(Busy(device));
  if (outcome->Ended == OpenOutcome::Kind::Failed) fail(Unusable(device, outcome->Reason));
  pace.Start(line.Baud);
}

// A port that has just vanished is closed too, so that what it still reports is dropped.
void QtSerialPort::CloseDevice() {
  if (engine == nullptr) return;
  Drain();
  drained.stop();
  Ask<bool>([](SerialWorker& worker) {
    worker.Close();
    return true;
  });
  if (engine == nullptr) return;
  const std::lock_guard lock(engine->Queues->Lock);
  engine->Queues->Session = 0;
  engine->Queues->Input.clear();
}

void QtSerialPort::Output(const std::string& bytes) {
  if (!PortOpen()) throw SerialError(SerialError::PortNotOpen, "The port is not open");
  if (bytes.empty()) return;
  bool fetchIsDue = false;
  {
    const std::lock_guard lock(engine->Queues->Lock);
    fetchIsDue = engine->Queues->Outgoing.empty();
    engine->Queues->Outgoing += bytes;
    engine->Queues->Unsent += bytes.size();
  }
  if (fetchIsDue) QMetaObject::invokeMethod(engine->Worker, &SerialWorker::SendOutgoing);
  pace.Queue(events.Now(), bytes.size());
  WakeWhenDrained();
}

// Bytes that the driver holds, where it can tell.
std::size_t QtSerialPort::WithDriver() const {
  int held = 0;
  if (engine->Queues->Handle < 0 || ioctl(engine->Queues->Handle, TIOCOUTQ, &held) != 0) return 0;
  return static_cast<std::size_t>(std::max(held, 0));
}

std::size_t QtSerialPort::OutBufferCount() const {
  if (!PortOpen()) return 0;
  const std::lock_guard lock(engine->Queues->Lock);
  return std::max(engine->Queues->Unsent + WithDriver(), pace.Held(events.Now()));
}

Duration QtSerialPort::UntilDrained() const {
  if (!PortOpen()) return Duration::zero();
  const std::lock_guard lock(engine->Queues->Lock);
  return std::max(pace.Left(events.Now()), pace.TimeOf(WithDriver()));
}

// While the worker still has bytes there is nothing to time: it reports when it has none.
void QtSerialPort::WakeWhenDrained() {
  const Duration left = UntilDrained();
  if (left <= Duration::zero()) return;
  const Duration early = std::max(left - timerError, Duration::zero());
  drained.start(std::chrono::floor<std::chrono::milliseconds>(early));
}

// What is left of the time is slept: rounded up, it would cost a hundredth of a firmware transfer.
void QtSerialPort::FinishDrained() {
  const Duration left = UntilDrained();
  if (left > timerError + Milliseconds(1)) return WakeWhenDrained();
  if (left > Duration::zero()) QThread::usleep(static_cast<unsigned long>(left.count()));
}

// Holds the thread until the last byte has left, or longestDrain has passed: a line may be stuck.
void QtSerialPort::Drain() {
  const Duration deadline = events.Now() + longestDrain;
  while (OutBufferCount() > 0 && events.Now() < deadline) {
    std::unique_lock lock(engine->Queues->Lock);
    Duration pause = std::max(pace.Left(events.Now()), pace.TimeOf(WithDriver()));
    if (pause <= Duration::zero()) pause = deadline - events.Now();
    engine->Queues->OutputMoved.wait_for(lock, std::min(pause, deadline - events.Now()));
  }
}

std::string QtSerialPort::Input() {
  if (engine == nullptr) return {};
  const std::lock_guard lock(engine->Queues->Lock);
  std::string taken;
  taken.swap(engine->Queues->Input);
  engine->Queues->Overflowed = false;
  if (taken.size() > InputLimit) taken.erase(0, taken.size() - InputLimit);
  return taken;
}

void QtSerialPort::AnnounceAgain() {
  if (engine == nullptr) return;
  const std::lock_guard lock(engine->Queues->Lock);
  if (engine->Queues->Input.empty()) return;
  QMetaObject::invokeMethod(
      this, [this, session = engine->Queues->Session] { Announce(session); }, Qt::QueuedConnection);
}

void QtSerialPort::Announce(quint64 session) {
  if (engine == nullptr) return;
  {
    const std::lock_guard lock(engine->Queues->Lock);
    if (engine->Queues->Session != session) return;
    engine->Queues->Announced = false;
    if (engine->Queues->Input.empty()) return;
  }
  Raise(comm::Receive, session);
}

// The handler of an error may hold for as long as its box is up; the port may be closed, or be a
// new one, when it returns.
void QtSerialPort::Report(quint64 session, int event) {
  Raise(event, session);
  if (engine == nullptr || !comm::IsError(event)) return;
  QMetaObject::invokeMethod(engine->Worker,
                            [worker = engine->Worker, session] { worker->ErrorAnswered(session); });
}

void QtSerialPort::Raise(int event, quint64 session) {
  if (engine == nullptr) return;
  {
    const std::lock_guard lock(engine->Queues->Lock);
    if (engine->Queues->Session != session) return;
  }
  events.Deliver([this, event] {
    commEvent = event;
    if (OnComm) OnComm();
  });
}

}  // namespace quillmark
