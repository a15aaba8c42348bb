#include "cli/line_input.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "cli/exit_codes.h"
#include "cli/utf8.h"
#include "qt/base/readable.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

constexpr std::size_t longestLine = 4096;

class Descriptor {
 public:
  explicit Descriptor(int opened) : handle(opened) {}
  ~Descriptor() {
    if (handle >= 0) close(handle);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  operator int() const { return handle; }  // NOLINT(google-explicit-constructor)

 private:
  int handle;
};

// A terminal that shows nothing of what is typed, for the length of a block. Keys that would stop
// or kill the program at once do nothing meanwhile: the shell would be left without its echo.
class QuietTerminal {
 public:
  explicit QuietTerminal(int handle) : terminal(handle) {
    if (tcgetattr(terminal, &before) != 0) return;
    changed = true;
    termios quiet = before;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    quiet.c_cc[VQUIT] = quiet.c_cc[VSUSP] = _POSIX_VDISABLE;
    tcsetattr(terminal, TCSAFLUSH, &quiet);
  }
  ~QuietTerminal() {
    if (!changed) return;
    tcsetattr(terminal, TCSAFLUSH, &before);
    // The line end that was typed did not show either.
    [[maybe_unused]] const auto written = write(terminal, "\n", 1);
  }
  QuietTerminal(const QuietTerminal&) = delete;
  QuietTerminal& operator=(const QuietTerminal&) = delete;

 private:
  int terminal;
  termios before{};
  bool changed = false;
};

std::string AskTerminal(CliMachine& machine, const std::string& prompt) {
  const Descriptor terminal(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC));
  if (terminal < 0) {
    throw Failure{Exit::Usage, "There is no terminal to ask for the secret on.",
                  "Give it with --secret-fd or --secret-file."};
  }
  const QuietTerminal quiet(terminal);
  [[maybe_unused]] const auto written = write(terminal, prompt.data(), prompt.size());
  return ReadLine(machine, terminal).value_or("");
}

std::string FirstLineOf(CliMachine& machine, const std::filesystem::path& file) {
  const Descriptor handle(open(file.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC | O_NONBLOCK));
  const auto line = handle < 0 ? std::nullopt : ReadLine(machine, handle);
  if (line) return *line;
  throw Failure{Exit::BadFile, "No secret can be read from " + PathText(file) + "."};
}

}  // namespace

std::optional<std::string> ReadLine(CliMachine& machine, int descriptor) {
  const Readable input(descriptor);
  std::string line;
  // Byte by byte: what stands behind the line is somebody else's.
  for (char byte = 0; line.size() < longestLine;) {
    machine.WaitFor([&] { return input.Now(); });
    const ssize_t count = read(descriptor, &byte, 1);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (count <= 0) {
      if (line.empty()) return std::nullopt;
      break;
    }
    if (byte == '\n') break;
    line += byte;
  }
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

std::string ReadSecret(CliMachine& machine, const SecretSource& source, const std::string& prompt) {
  std::string typed;
  if (source.Descriptor >= 0) {
    const bool open = fcntl(source.Descriptor, F_GETFD) >= 0;
    const auto line = open ? ReadLine(machine, source.Descriptor) : std::nullopt;
    if (!line) throw Failure{Exit::Usage, "No secret can be read from that descriptor."};
    typed = *line;
  } else if (!source.File.empty()) {
    typed = FirstLineOf(machine, source.File);
  } else {
    typed = AskTerminal(machine, prompt);
  }
  const auto secret = FromUtf8(typed);
  if (secret) return *secret;
  throw Failure{Exit::Usage, "The secret has characters that radios do not know."};
}

}  // namespace quillmark
