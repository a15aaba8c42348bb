#pragma once

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace quillmark {

// A line whose other end is in the test's hand: a pseudo-terminal in raw mode. The device is kept
// open here too, as a radio's cable stays plugged in when a program closes the port.
class PtyPair {
 public:
  PtyPair() : master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
      throw std::runtime_error("no pseudo-terminal");
    }
    char name[64];
    ptsname_r(master, name, sizeof name);
    path = name;
    slave = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios raw{};
    tcgetattr(slave, &raw);
    cfmakeraw(&raw);
    tcsetattr(slave, TCSANOW, &raw);
  }
  ~PtyPair() { HangUp(); }
  PtyPair(const PtyPair&) = delete;
  PtyPair& operator=(const PtyPair&) = delete;

  const std::string& Path() const { return path; }

  void Send(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t written = write(master, bytes.data(), bytes.size());
      if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
      pollfd ready{master, POLLOUT, 0};
      if (poll(&ready, 1, 2000) <= 0) throw std::runtime_error("the line is stuck");
    }
  }

  // What has come so far, without waiting.
  std::string Received() {
    std::string bytes;
    char block[4096];
    for (ssize_t size = 0; (size = read(master, block, sizeof block)) > 0;) {
      bytes.append(block, static_cast<std::size_t>(size));
    }
    return bytes;
  }

  void HangUp() {
    if (slave >= 0) close(slave);
    if (master >= 0) close(master);
    slave = master = -1;
  }

 private:
  int master = -1;
  int slave = -1;
  std::string path;
};

// The same line, held by a program that may change its mode behind the console's back.
class OtherProgram {
 public:
  explicit OtherProgram(const std::string& path)
      : device(open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {}
  ~OtherProgram() { close(device); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  // In line mode an end-of-file makes the reader's read fail, as a program that reads along does.
  void SetLineMode(bool on) const {
    termios mode{};
    tcgetattr(device, &mode);
    mode.c_lflag = on ? mode.c_lflag | ICANON : mode.c_lflag & ~tcflag_t{ICANON};
    mode.c_cc[on ? VEOF : VMIN] = on ? 4 : 1;
    tcsetattr(device, TCSANOW, &mode);
  }

 private:
  int device;
};

}  // namespace quillmark
