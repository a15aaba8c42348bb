#include "sim/pty/pty_port.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

namespace quillmark::sim {

namespace {

// A rate as the system names it, and in baud.
struct Rate {
  speed_t Code;
  int Baud;
};

constexpr Rate rates[] = {{B300, 300},     {B600, 600},      {B1200, 1200},   {B2400, 2400},
                          {B4800, 4800},   {B9600, 9600},    {B19200, 19200}, {B38400, 38400},
                          {B57600, 57600}, {B115200, 115200}};

// A rate that is not in the table is as wrong as the slowest one.
constexpr int otherBaud = 300;

[[noreturn]] void Fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

PtyPort::PtyPort(unsigned mode) {
  try {
    Configure(mode);
  } catch (...) {
    Close();
    throw;
  }
}

PtyPort::~PtyPort() { Close(); }

void PtyPort::Configure(unsigned mode) {
  master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) Fail("pseudo-terminal");
  char name[128];
  if (ptsname_r(master, name, sizeof name) != 0) Fail("name of the pseudo-terminal");
  path = name;
  client = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (client < 0) Fail("client's end of the pseudo-terminal");
  if (fchmod(client, mode) != 0) Fail("mode of the pseudo-terminal");

  termios settings{};
  if (tcgetattr(client, &settings) != 0) Fail("settings of the pseudo-terminal");
  cfmakeraw(&settings);
  cfsetspeed(&settings, B19200);
  if (tcsetattr(client, TCSANOW, &settings) != 0) Fail("settings of the pseudo-terminal");
  if (fcntl(master, F_SETFL, O_RDWR | O_NONBLOCK) != 0) Fail("pseudo-terminal");

  watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
  if (watch >= 0 && inotify_add_watch(watch, name, IN_OPEN | IN_CLOSE) < 0) {
    close(watch);
    watch = -1;
  }
}

void PtyPort::Close() {
  for (int* handle : {&master, &client, &watch}) {
    if (*handle >= 0) close(*handle);
    *handle = -1;
  }
}

bool PtyPort::NoticeClients() {
  if (watch < 0) return false;
  const bool had = clients > 0;
  alignas(inotify_event) char buffer[4096];
  ssize_t length;
  while ((length = read(watch, buffer, sizeof buffer)) > 0) {
    for (ssize_t at = 0; at < length;) {
      inotify_event event;
      std::memcpy(&event, buffer + at, sizeof event);
      if ((event.mask & IN_OPEN) != 0) ++clients;
      if ((event.mask & IN_CLOSE) != 0) --clients;
      at += static_cast<ssize_t>(sizeof event + event.len);
    }
  }
  if (!had || clients > 0) return false;
  ioctl(client, TIOCNXCL);
  tcflush(client, TCIFLUSH);
  return true;
}

int PtyPort::ClientBaud() const {
  termios settings{};
  if (tcgetattr(master, &settings) != 0) return otherBaud;
  const speed_t code = cfgetospeed(&settings);
  for (const Rate& rate : rates) {
    if (rate.Code == code) return rate.Baud;
  }
  return otherBaud;
}

std::string PtyPort::Read() {
  char buffer[4096];
  const ssize_t length = read(master, buffer, sizeof buffer);
  return length > 0 ? std::string(buffer, static_cast<std::size_t>(length)) : std::string();
}

std::size_t PtyPort::Write(std::string_view bytes) {
  const ssize_t length = write(master, bytes.data(), bytes.size());
  return length > 0 ? static_cast<std::size_t>(length) : 0;
}

}  // namespace quillmark::sim
