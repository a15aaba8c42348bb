#include "firmware_radio.h"

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <stdexcept>

#include "sim/pty/pty_server.h"
#include "sim/sim_line.h"
#include "sim/sim_radio.h"

namespace quillmark::bench {

namespace {

constexpr const char* firstWord = "transfer";

void Print(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

}  // namespace

std::string TransferLine(const TransferSeen& seen) {
  std::ostringstream line;
  line << firstWord << ' ' << seen.Bytes << ' ' << seen.Microseconds << ' ' << seen.MostAhead << ' '
       << seen.Sound;
  return line.str();
}

TransferSeen ReadTransferLine(const std::string& line) {
  TransferSeen seen;
  std::string word;
  std::istringstream stream(line);
  stream >> word >> seen.Bytes >> seen.Microseconds >> seen.MostAhead >> seen.Sound;
  if (!stream || word != firstWord) throw std::runtime_error("the simulated radio said " + line);
  return seen;
}

int TakeFirmware() {
  sim::SimRadioOptions options;
  options.StartInLoader = true;
  sim::SimRadio radio(options);
  sim::SimLine line(radio);
  line.SetLogLimit(0);
  sim::PtyServer server(line, {});
  server.OnDevice = [](const std::string& path) { Print("radio on " + path); };
  TransferSeen seen;
  bool told = false;
  server.OnTurn = [&] {
    const sim::SimTransfer& transfer = radio.Transfer();
    if (told || radio.Baud() != 115200) return;
    seen.MostAhead =
        std::max(seen.MostAhead, static_cast<std::int64_t>(line.HostBytesPending(sim::Time(0))));
    if (!transfer.Ended) return;
    told = true;
    seen.Bytes = transfer.Bytes;
    seen.Microseconds = (transfer.Last - transfer.First).count();
    seen.Sound = transfer.Sound;
    Print(TransferLine(seen));
  };
  server.Run();
  return 0;
}

}  // namespace quillmark::bench
