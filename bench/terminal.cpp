// A steady stream of text into the terminal and an open log: what it costs, and whether all of it
// arrives. Beside it the cost of reading the same stream and writing it to a file by itself.

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "line_feeder.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

namespace fs = std::filesystem;

constexpr int plainSeconds = 5;
constexpr double worstPace = 0.98;  // of the stream's rate; slower is no measurement

// A process with a radio that streams known lines.
struct Feeder {
  explicit Feeder(int seconds)
      : Process(Surroundings::ThisProgram(), {"--feed", std::to_string(seconds)}),
        Device(DeviceIn(Process.Line())) {}

  Child Process;
  std::string Device;
};

// A file or device that is closed at the end.
struct Handle {
  Handle(const fs::path& path, int flags) : Number(open(path.c_str(), flags | O_CLOEXEC, 0600)) {
    if (Number < 0) throw std::runtime_error(path.string() + " cannot be opened");
  }
  ~Handle() { close(Number); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  const int Number;
};

void WriteAll(const Handle& to, const char* text, ssize_t length) {
  if (write(to.Number, text, static_cast<std::size_t>(length)) != length) {
    throw std::runtime_error("a write was cut short");
  }
}

std::string EchoOfTheWord() { return std::string(streamWord) + "\r\n"; }

// Reads the stream and copies it into a file, nothing else; in percent of a core.
double PlainShare(const fs::path& file) {
  const Feeder feeder(plainSeconds);
  const Handle device(feeder.Device, O_RDWR | O_NOCTTY);
  const Handle copy(file, O_WRONLY | O_CREAT | O_TRUNC);
  const std::string command = std::string(streamWord) + "\r";
  std::size_t missing = EchoOfTheWord().size() + KnownLines(plainSeconds).size();
  const Moment begin = Now();
  WriteAll(device, command.data(), static_cast<ssize_t>(command.size()));
  while (missing > 0) {
    pollfd waiting{device.Number, POLLIN, 0};
    char bytes[4096];
    if (poll(&waiting, 1, 1000) <= 0) throw std::runtime_error("the stream has stopped");
    const ssize_t length = read(device.Number, bytes, sizeof bytes);
    if (length <= 0) throw std::runtime_error("the stream cannot be read");
    WriteAll(copy, bytes, length);
    missing -= std::min(missing, static_cast<std::size_t>(length));
  }
  return ShareBetween(begin, Now());
}

// The line ends as the terminal has them: LF is dropped, CR becomes CR LF.
std::string WithTerminalLineEnds(const std::string& text) {
  std::string lines;
  for (const char c : text) {
    if (c != '\n') lines += c;
    if (c == '\r') lines += '\n';
  }
  return lines;
}

std::string ContentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// From the first one that differs to the end.
std::size_t FaultyBytes(const std::string& expected, const std::string& found) {
  const auto same = std::ranges::mismatch(expected, found).in1 - expected.begin();
  return std::max(expected.size(), found.size()) - static_cast<std::size_t>(same);
}

// What came of one stream through the console.
struct Streamed {
  double Share = 0;    // percent of a core
  double Seconds = 0;  // that the stream took
  int Arrivals = 0;    // in how many pieces it came
  std::string Expected, Log;
};

Streamed Stream(const Surroundings& surroundings) {
  const int time = surroundings.StreamSeconds;
  const fs::path logFile = surroundings.File("terminal.log");
  fs::remove(logFile);
  Streamed streamed;
  streamed.Expected = WithTerminalLineEnds(EchoOfTheWord() + KnownLines(time));

  const Feeder feeder(time);
  Desk desk(surroundings, feeder.Device);
  desk.Connect();
  desk.RunFor(Seconds(1));
  desk.Boxes().ChosenFile = logFile;
  desk.Main().mnuOpenLog.Click();
  const Moment begin = Now();
  desk.Main().txtTerm.UserType(std::string(streamWord) + "\r");
  desk.RunFor(Seconds(time - 0.5));
  const bool arrived =
      desk.RunUntil(Seconds(5), [&] { return fs::file_size(logFile) >= streamed.Expected.size(); });
  const Moment end = Now();
  desk.Main().mnuCloseLog.Click();
  streamed.Share = ShareBetween(begin, end);
  streamed.Seconds = SecondsBetween(begin, end);
  streamed.Arrivals = desk.Port().Exchanges().back().Arrivals;
  streamed.Log = ContentOf(logFile);
  if (arrived && streamed.Seconds * worstPace > time) {
    throw std::runtime_error("the stream came too slowly");
  }
  return streamed;
}

}  // namespace

std::vector<Figure> MeasureTerminal(Surroundings& surroundings) {
  const double plainShare = PlainShare(surroundings.File("plain.log"));
  const Streamed streamed = Stream(surroundings);
  char note[120];
  std::snprintf(note, sizeof note, "%zu bytes in the log after %.2f s, taken in %d pieces",
                streamed.Log.size(), streamed.Seconds, streamed.Arrivals);
  return {{.Name = "processor, terminal and log",
           .In = processorShare,
           .Measured = streamed.Share,
           .Floor = plainShare,
           .FloorName = "only reading and writing",
           .Limit = 6,
           .Note = note},
          {.Name = "lost or wrong in the log",
           .In = bytes,
           .Measured = static_cast<double>(FaultyBytes(streamed.Expected, streamed.Log)),
           .FloorName = "nothing"}};
}

}  // namespace quillmark::bench
