// A firmware file of 512 KB over a line at 115200 baud: how much of the line the transfer uses, how
// far it runs ahead of it, and what it costs.

#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "firmware_radio.h"
#include "measurements.h"
#include "sim/firmware_image.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

// The last block is shorter than the others.
constexpr std::size_t fileLength = 512 * 1024 - 100;
constexpr double byteTime = 10.0 / 115200;  // s
constexpr double block = 512;               // bytes, the size of the port's output buffer
constexpr int longestVerdict = 5'000;       // ms

using Sendings = std::span<const Exchange>;

// The blocks alone.
Sendings BlocksOf(const std::vector<Exchange>& exchanges) {
  const auto sends = [](const char* text) {
    return [text](const Exchange& exchange) { return exchange.Sent == text; };
  };
  const auto first = std::ranges::find_if(exchanges, sends("PROGRAM\r"));
  const auto behind = std::ranges::find_if(exchanges, sends("EXIT\r"));
  if (first == exchanges.end() || behind == exchanges.end() || behind - first < 3) {
    throw std::runtime_error("the firmware was not sent to its end");
  }
  return {std::next(first), behind};
}

// By how many bytes the console was ahead of a line that takes each as soon as it is sent.
double MostAhead(Sendings blocks) {
  double ahead = 0;
  double most = 0;
  Moment last;
  for (const Exchange& sent : blocks) {
    ahead = std::max(0.0, ahead - SecondsBetween(last, sent.SentAt) / byteTime);
    ahead += static_cast<double>(sent.Sent.size());
    most = std::max(most, ahead);
    last = sent.SentAt;
  }
  return most;
}

// How long the windows were without a turn, at the longest, while whole blocks went out.
class TurnWatch {
 public:
  explicit TurnWatch(Desk& desk) {
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, [this, &desk] {
      const auto& exchanges = desk.Port().Exchanges();
      const bool sending =
          !exchanges.empty() && static_cast<double>(exchanges.back().Sent.size()) == block;
      const Duration now = Now().Wall;
      if (sending && last) longest = std::max(longest, now - *last);
      last = sending ? std::optional(now) : std::nullopt;
    });
    timer.start(interval);
  }
  double Longest() const { return static_cast<double>(longest.count()) / 1000; }  // ms

  static constexpr int interval = 5;  // ms

 private:
  QTimer timer;
  std::optional<Duration> last;
  Duration longest{};
};

}  // namespace

std::vector<Figure> MeasureFirmware(Surroundings& surroundings) {
  const double idleShare = surroundings.IdleRate() / 10;
  const auto file = surroundings.File("new.s28");
  std::ofstream(file, std::ios::binary) << sim::FirmwareImage("3.2.1", fileLength);
  Child radio(Surroundings::ThisProgram(), {"--take-firmware"});
  Desk desk(surroundings, DeviceIn(radio.Line()));
  desk.Boxes().ChosenFile = file;
  desk.ShowMain();
  const auto connected = [&] {
    return desk.Boxes().LastMessage.find("needs software") != std::string::npos &&
           desk.Main().mnuSendText.Enabled();
  };
  if (!desk.RunUntil(Seconds(30), connected)) throw std::runtime_error("the loader is not found");
  desk.RunFor(Seconds(1));
  desk.Port().Forget();
  const TurnWatch turns(desk);
  desk.Main().mnuSendText.Click();
  const TransferSeen seen = ReadTransferLine(radio.Line(longestVerdict));
  if (!seen.Sound) throw std::runtime_error("the image came over damaged");

  const double took = static_cast<double>(seen.Microseconds) / 1e6;
  const double least = static_cast<double>(seen.Bytes - 1) * byteTime;
  const Sendings blocks = BlocksOf(desk.Port().Exchanges());
  char note[160];
  std::snprintf(note, sizeof note,
                "%lld bytes in %.3f s, %.4f of the line's rate; at the radio's end, which may look "
                "late, %lld bytes ahead",
                static_cast<long long>(seen.Bytes), took, least / took,
                static_cast<long long>(seen.MostAhead));
  return {{.Name = "firmware transfer",
           .In = seconds,
           .Measured = took,
           .Floor = least,
           .FloorName = "the line alone",
           .By = Judged::Ratio,
           .Limit = 1 / 0.98,
           .Note = note},
          {.Name = "firmware, ahead of the line",
           .In = bytes,
           .Measured = MostAhead(blocks),
           .Floor = block,
           .FloorName = "one block",
           .Limit = block},
          {.Name = "firmware, longest wait of the window",
           .In = milliseconds,
           .Measured = turns.Longest(),
           .Floor = TurnWatch::interval,
           .FloorName = "its timer's interval",
           .Limit = 50},
          {.Name = "processor, firmware transfer",
           .In = processorShare,
           .Measured = ShareBetween(blocks.front().SentAt, blocks.back().SentAt),
           .Floor = idleShare,
           .FloorName = idleFloorName,
           .Limit = 5}};
}

}  // namespace quillmark::bench
