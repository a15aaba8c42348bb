#include "sim/pty/pty_server.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <system_error>
#include <utility>

namespace quillmark::sim {

namespace {

// Bytes leave the radio one by one, up to 11 520 a second; a turn for several of them is enough.
constexpr Time shortestWait = std::chrono::microseconds(500);
// Beyond this the client has to wait, as with a full driver.
constexpr std::size_t mostOnTheWay = 64 << 10;
constexpr std::size_t mostUnwritten = 64 << 10;

volatile std::sig_atomic_t stopAsked = 0;
volatile std::sig_atomic_t hangUpAsked = 0;

void OnSignal(int signal) {
  if (signal == SIGUSR1) {
    hangUpAsked = 1;
  } else {
    stopAsked = 1;
  }
}

constexpr int signals[] = {SIGINT, SIGTERM, SIGUSR1};

Time Clock() {
  return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now().time_since_epoch());
}

bool PointsTo(const std::string& link, const std::string& target) {
  std::error_code error;
  return std::filesystem::read_symlink(link, error) == target && !error;
}

void MakeLink(const std::string& link, const std::string& target) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(link, error);
  if (std::filesystem::exists(status) && !std::filesystem::is_symlink(status)) {
    throw std::system_error(std::make_error_code(std::errc::file_exists), link);
  }
  // Renamed over the old one, so that a client never finds the name missing.
  const std::string fresh = link + "." + std::to_string(getpid());
  std::filesystem::create_symlink(target, fresh);
  std::filesystem::rename(fresh, link);
}

}  // namespace

PtyServer::PtyServer(SimLine& itsLine, PtyOptions itsOptions)
    : line(itsLine), options(std::move(itsOptions)), started(Clock()) {
  Open();
}

PtyServer::~PtyServer() { Close(); }

void PtyServer::Run() {
  // The signals come only while the loop sleeps, so that none is missed between look and sleep.
  sigset_t blocked;
  sigemptyset(&blocked);
  struct sigaction action {};
  action.sa_handler = OnSignal;
  for (const int signal : signals) {
    sigaddset(&blocked, signal);
    sigaction(signal, &action, nullptr);
  }
  sigprocmask(SIG_BLOCK, &blocked, nullptr);
  if (OnDevice) OnDevice(Path());
  while (stopAsked == 0 && (port || reopenAt)) {
    Turn();
    if (OnTurn) OnTurn();
    if (stopAsked == 0 && (port || reopenAt)) Wait();
  }
  Close();
}

Time PtyServer::Now() const { return Clock() - started; }

void PtyServer::Open() {
  port = std::make_unique<PtyPort>(options.Mode);
  if (!options.Link.empty()) MakeLink(options.Link, port->Path());
}

void PtyServer::Close() {
  if (!port) return;
  std::error_code ignored;
  if (PointsTo(options.Link, port->Path())) std::filesystem::remove(options.Link, ignored);
  port.reset();
}

void PtyServer::Turn() {
  const Time now = Now();
  if (std::exchange(hangUpAsked, 0) != 0) line.HangUp();
  if (reopenAt && *reopenAt <= now) {
    reopenAt.reset();
    line.Restore();
    Open();
    if (OnDevice) OnDevice(Path());
  }
  if (!port) return;
  const bool lastOneLeft = port->NoticeClients();
  TakeFromClient(now);
  const std::string bytes = line.Advance(now);
  if (lastOneLeft) {
    unwritten.clear();
    line.HostClears();
  }
  if (port->HasClient()) GiveToClient(bytes);
  if (!line.HungUp()) return;
  unwritten.clear();
  Close();
  if (options.Reappear) reopenAt = now + *options.Reappear;
}

void PtyServer::TakeFromClient(Time now) {
  const int baud = port->ClientBaud();
  line.HostListens(baud);
  while (line.HostBytesPending(now) < mostOnTheWay) {
    const std::string bytes = port->Read();
    if (bytes.empty()) return;
    line.HostSends(now, bytes, baud);
  }
}

void PtyServer::GiveToClient(const std::string& bytes) {
  unwritten += bytes;
  if (unwritten.empty()) return;
  unwritten.erase(0, port->Write(unwritten));
  if (unwritten.size() > mostUnwritten) unwritten.erase(0, unwritten.size() - mostUnwritten);
}

void PtyServer::Wait() {
  const Time now = Now();
  const auto next = reopenAt ? reopenAt : line.NextEvent();
  timespec timeout{};
  if (next) {
    const Time wait = std::max(*next - now, shortestWait);
    timeout.tv_sec = static_cast<time_t>(wait.count() / 1'000'000);
    timeout.tv_nsec = static_cast<long>(wait.count() % 1'000'000 * 1000);
  }
  pollfd handles[2] = {{-1, POLLIN, 0}, {-1, POLLIN, 0}};
  if (port) {
    const bool takesMore = line.HostBytesPending(now) < mostOnTheWay;
    handles[0].fd = port->DataHandle();
    handles[0].events =
        static_cast<short>((takesMore ? POLLIN : 0) | (unwritten.empty() ? 0 : POLLOUT));
    handles[1].fd = port->ClientsHandle();
  }
  sigset_t none;
  sigemptyset(&none);
  if (ppoll(handles, 2, next ? &timeout : nullptr, &none) < 0 && errno != EINTR) {
    throw std::system_error(errno, std::generic_category(), "ppoll");
  }
}

}  // namespace quillmark::sim
