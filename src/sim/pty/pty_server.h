#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "sim/pty/pty_port.h"
#include "sim/sim_line.h"
#include "sim/sim_time.h"

namespace quillmark::sim {

// The options of a served line.
struct PtyOptions {
  std::string Link;              // a symbolic link to keep beside the device; "": none
  unsigned Mode = 0666;          // of the device, for clients
  std::optional<Time> Reappear;  // after a hang-up a new device comes up so much later
};

// Serves a radio's line on a pseudo-terminal in real time. It sleeps until a client sends something
// or the line has something due, so that waiting costs nothing. A client that leaves changes
// nothing at the radio; bytes that come while nobody listens are lost, as on a real line. The
// constructor and Run throw std::system_error.
class PtyServer {
 public:
  PtyServer(SimLine& itsLine, PtyOptions itsOptions);
  ~PtyServer();

  // The device that clients open; "" while the line is hung up.
  std::string Path() const { return port ? port->Path() : std::string(); }
  // Called with the device's path when a device has come up, and at each turn of the loop.
  std::function<void(const std::string&)> OnDevice;
  std::function<void()> OnTurn;

  // Serves until SIGINT or SIGTERM, or until the line has hung up for good. SIGUSR1 hangs it up.
  void Run();

 private:
  Time Now() const;
  void Open();
  void Close();
  void Turn();
  void Wait();
  void TakeFromClient(Time now);
  void GiveToClient(const std::string& bytes);

  SimLine& line;
  PtyOptions options;
  std::unique_ptr<PtyPort> port;
  std::string unwritten;
  std::optional<Time> reopenAt;
  Time started;
};

}  // namespace quillmark::sim
