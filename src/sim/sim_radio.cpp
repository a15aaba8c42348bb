#include "sim/sim_radio.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "sim/sim_words.h"

namespace quillmark::sim {

namespace {

constexpr char carriageReturn = 13;
constexpr char escape = 27;
constexpr std::string_view lineEnd = "\r\n";
constexpr int loaderRates[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
// The loader goes over to the host's rate when it has measured this many carriage returns at it.
constexpr int returnsToMeasure = 2;

}  // namespace

SimRadio::SimRadio(SimRadioOptions radioOptions)
    : options(std::move(radioOptions)),
      settings({.Revision = options.Revision,
                .LowPower = options.LowPower,
                .RtuSelected = options.RtuSelected,
                .Synchronised = options.Synchronised},
               std::string_view(&options.Mode, 1),
               std::string_view(options.SerialNumber)
                   .substr(options.SerialNumber.size() -
                           std::min<std::size_t>(options.SerialNumber.size(), 4))),
      zones(options.Seed),
      commands(session, settings, zones, options),
      loader(options.Loader),
      random(options.Seed),
      rssi(options.Rssi),
      baud(options.Baud) {
  session.Password = options.Password;
  session.LoggedIn = options.LoggedIn;
  if (options.StartInSetup) session.At = Level::Setup;
  if (options.StartInLoader) session.At = Level::Loader;
}

void SimRadio::Receive(Time at, std::string_view bytes, int hostBaud) {
  for (const char byte : bytes) {
    RunTimers(at);
    Arrive(at, byte, hostBaud);
  }
}

std::optional<Time> SimRadio::NextDeparture() const {
  const auto byte = output.NextDeparture();
  const auto timer = NextTimer();
  if (!byte) return timer;
  return timer ? std::min(*byte, *timer) : *byte;
}

std::string SimRadio::Departed(Time until) {
  RunTimers(until);
  std::string bytes;
  while (const auto byte = output.Take(until)) {
    const bool understood = listeningBaud == 0 || listeningBaud == byte->Baud;
    bytes += understood ? byte->Value : static_cast<char>(128 + random() % 128);
  }
  return bytes;
}

std::string SimRadio::Setting(std::string_view word) const {
  if (word == "ser") return options.SerialNumber;
  if (word == "srev") return settings.Traits().Revision;
  if (word == "rx") return MegahertzText(session.RxKilohertz);
  if (word == "tx") return MegahertzText(session.TxKilohertz);
  return settings.Value(word);
}

bool SimRadio::Program(std::string_view word, std::string_view value) {
  const RadioSetting* row = settings.Row(word);
  return row != nullptr && settings.Program(*row, value) == "PROGRAMMED OK";
}

void SimRadio::SetZoneCounters(int zone, std::int64_t tx, std::int64_t rx, std::int64_t errors) {
  zones.Set(zone, tx, rx, errors);
}

void SimRadio::SetReply(std::string_view word, std::string text, bool prompt) {
  overrides[Lowered(word)] = {.Text = std::move(text), .Prompt = prompt};
}

int SimRadio::Pace(int lineBaud) const {
  if (!options.Paced) return 0;
  return options.PaceBaud > 0 ? options.PaceBaud : lineBaud;
}

std::vector<std::string> SimRadio::Commands() const {
  std::vector<std::string> texts;
  for (const ReceivedLine& received : lines) {
    if (!received.text.empty()) texts.push_back(received.text);
  }
  return texts;
}

std::vector<std::string> SimRadio::CommandsAfter(std::string_view wanted) const {
  std::vector<std::string> texts = Commands();
  const auto last = std::find(texts.rbegin(), texts.rend(), wanted);
  if (last == texts.rend()) return {};
  texts.erase(texts.begin(), last.base());
  return texts;
}

void SimRadio::Arrive(Time at, char byte, int hostBaud) {
  if (at >= deafUntil && Understands(at, byte, hostBaud)) Hear(at, byte);
}

// In the loader two carriage returns in a row at another rate set the loader to that rate; the
// second one then counts as typed.
bool SimRadio::Understands(Time at, char byte, int hostBaud) {
  if (hostBaud == 0) return true;
  listeningBaud = hostBaud;
  if (hostBaud == baud) {
    foreignReturns = 0;
    return true;
  }
  ++wrongBaudBytes;
  if (session.At == Level::Loader) {
    if (loader.Receiving()) GiveVerdict(at, loader.Abort("LINE ERROR"));
    const bool measurable = byte == carriageReturn &&
                            std::find(std::begin(loaderRates), std::end(loaderRates), hostBaud) !=
                                std::end(loaderRates);
    if (!measurable || hostBaud != foreignBaud) foreignReturns = 0;
    foreignBaud = hostBaud;
    if (measurable && ++foreignReturns == returnsToMeasure) {
      foreignReturns = 0;
      baud = hostBaud;
      Hear(at, escape);  // what came so far was noise
      return true;
    }
  }
  Echo(at, std::string(1, byte));
  return false;
}

void SimRadio::Restart(Time at, RadioAnswer::Next how) {
  const bool toLoader = how == RadioAnswer::Next::EnterLoader;
  deafUntil = at + (toLoader ? options.Loader.EnterTime : options.Loader.StartTime);
  std::string password = std::move(session.Password);
  session = {};
  session.Password = std::move(password);
  if (toLoader) {
    session.At = Level::Loader;
    loader.Enter();
  } else {
    settings.Traits().Revision = loader.Version();
  }
  baud = options.Baud;
  work.reset();
  input.Clear();
  if (!IsMuted(input.Commands() + 1)) Send(deafUntil, std::string(lineEnd) + Prompt());
}

void SimRadio::GiveVerdict(Time at, const std::string& verdict) {
  if (work) Give(at);  // a short image ends before the loader has said that it takes one
  deafUntil = at + options.Loader.VerifyTime;
  if (IsMuted(input.Commands() + 1)) return;
  Send(deafUntil, std::string(lineEnd) + verdict + std::string(lineEnd) + Prompt());
}

void SimRadio::RunTimers(Time now) {
  for (auto due = NextTimer(); due && *due <= now; due = NextTimer()) {
    if (work && work->Due == *due) {
      Proceed(*due);
    } else if (session.At == Level::Loader) {
      GiveVerdict(*due, loader.Abort("NO END RECORD"));
    } else {
      Report(*due);
    }
  }
}

void SimRadio::Report(Time at) {
  nextReport = at + options.RssiInterval;
  if (IsMuted(input.Commands() + 1)) return;
  Send(at, "RSSI " + std::to_string(rssi) + " dBm" + std::string(lineEnd));
}

std::optional<Time> SimRadio::NextTimer() const {
  std::optional<Time> next;
  if (session.At == Level::Loader) {
    next = loader.Deadline();
    if (next) next = std::max(*next, deafUntil);
  } else if (session.Pending == SimSession::Waits::WhileReporting) {
    next = nextReport;
  }
  if (!work) return next;
  return next ? std::min(*next, work->Due) : work->Due;
}

void SimRadio::Echo(Time at, std::string_view bytes) {
  if (session.Echo && !IsMuted(input.ShownCommand())) Send(at, bytes);
}

std::string SimRadio::Prompt() const {
  if (session.At == Level::Loader) return "LOADER>";
  if (session.Pending == SimSession::Waits::ForNextPage) return "MORE>";
  return session.At == Level::Setup ? "SETUP>" : ">";
}

}  // namespace quillmark::sim
