#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark::sim {

// One pseudo-terminal: the radio's end of it, and what can be seen there of the clients at the
// other end. It keeps the client's end open itself, so that clients may come and go. PtyServer owns
// one; when it dies, clients find their line hung up. The constructor throws std::system_error.
class PtyPort {
 public:
  // Clients of any user may open it if `mode` says so (an octal file mode such as 0666).
  explicit PtyPort(unsigned mode);
  ~PtyPort();
  PtyPort(const PtyPort&) = delete;
  PtyPort& operator=(const PtyPort&) = delete;

  // The device that clients open.
  const std::string& Path() const { return path; }
  int DataHandle() const { return master; }
  // Readable when clients came or went; -1 when the system does not tell.
  int ClientsHandle() const { return watch; }

  // Takes note of clients that came or went. When the last one has gone, what it left behind is
  // cleared: bytes that it did not read, and an exclusive mark that a killed client leaves on the
  // line and that would lock out everybody but root. True if the last one has gone just now.
  bool NoticeClients();
  bool HasClient() const { return clients > 0 || watch < 0; }
  // The rate that the client has set on its end, in baud.
  int ClientBaud() const;

  // What clients have sent; "" when there is nothing.
  std::string Read();
  // Sends as much as the line takes now and gives how much that was, in bytes.
  std::size_t Write(std::string_view bytes);

 private:
  void Configure(unsigned mode);
  void Close();

  int master = -1;
  int client = -1;
  int watch = -1;
  int clients = 0;
  std::string path;
};

}  // namespace quillmark::sim
