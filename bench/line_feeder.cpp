#include "line_feeder.h"

#include <cstdio>

#include "sim/pty/pty_server.h"
#include "sim/sim_line.h"
#include "sim/sim_radio.h"

namespace quillmark::bench {

std::string KnownLines(int seconds) {
  constexpr std::size_t lineLength = 80;
  constexpr char firstPrintable = '!';
  constexpr int printableCount = '~' - firstPrintable + 1;
  const std::size_t lineCount = static_cast<std::size_t>(seconds) * streamRate / lineLength;
  std::string lines;
  lines.reserve(lineCount * lineLength);
  for (std::size_t i = 1; i <= lineCount; ++i) {
    char number[24];
    std::snprintf(number, sizeof number, "%08zu ", i);
    std::string line = number;
    while (line.size() < lineLength - 2) {
      line +=
          static_cast<char>(firstPrintable + static_cast<int>(i + line.size()) % printableCount);
    }
    lines += line + "\r\n";
  }
  return lines;
}

int Feed(int seconds) {
  sim::SimRadioOptions options;
  options.PaceBaud = 115200;
  sim::SimRadio radio(options);
  radio.SetReply(streamWord, KnownLines(seconds), false);
  sim::SimLine line(radio);
  line.SetLogLimit(0);
  sim::PtyServer server(line, {});
  server.OnDevice = [](const std::string& path) {
    std::printf("radio on %s\n", path.c_str());
    std::fflush(stdout);
  };
  server.Run();
  return 0;
}

}  // namespace quillmark::bench
