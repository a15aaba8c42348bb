#include "sim/sim_radio.h"

#include <algorithm>
#include <utility>

#include "sim/sim_words.h"

namespace quillmark::sim {

namespace {

constexpr char carriageReturn = 13;
constexpr char escape = 27;
constexpr std::string_view lineEnd = "\r\n";
// Typed characters beyond this are lost, so that a line never grows without end.
constexpr std::size_t longestLine = 255;
constexpr std::size_t mostLines = 20'000;
constexpr int loaderRates[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
// The loader goes over to the host's rate when it has measured this many carriage returns at it.
constexpr int returnsToMeasure = 2;

bool IsBackspace(char byte) { return byte == 8 || byte == 127; }
bool IsControl(char byte) { return static_cast<unsigned char>(byte) < 32; }

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
  RunTimers(at);
  for (const char byte : bytes) TakeByte(at, byte, hostBaud);
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

void SimRadio::TakeByte(Time at, char byte, int hostBaud) {
  if (at < busyUntil) {
    ++unheardBytes;
    return;
  }
  if (!Understands(at, byte, hostBaud)) return;
  if (session.At == Level::Loader && loader.Receiving()) {
    TakeImageByte(at, byte);
  } else {
    TakeTypedByte(at, byte);
  }
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
      line.clear();
      return true;
    }
  }
  Echo(at, std::string(1, byte));
  return false;
}

void SimRadio::TakeTypedByte(Time at, char byte) {
  if (byte == carriageReturn) {
    EndLine(at);
  } else if (session.Pending == SimSession::Waits::WhileReporting) {
    return;  // only the carriage return ends the reports
  } else if (byte == escape) {
    line.clear();
    session.Pending = SimSession::Waits::No;
  } else if (IsBackspace(byte)) {
    if (line.empty()) return;
    line.pop_back();
    Echo(at, "\b \b");
  } else if (!IsControl(byte) && line.size() < longestLine) {
    line += byte;
    Echo(at, std::string(1, byte));
  }
}

void SimRadio::TakeImageByte(Time at, char byte) {
  const auto verdict = loader.Take(at, byte);
  if (verdict) return GiveVerdict(at, *verdict);
  if (loader.ResetsNow()) return Restart(at, RadioAnswer::Next::EnterLoader);
  if (loader.StallsNow()) busyUntil = at + options.Loader.StallTime;
}

void SimRadio::EndLine(Time at) {
  const std::string text = std::exchange(line, {});
  Remember(at, text);
  Give(at, text, Execute(at, text));
}

void SimRadio::Remember(Time at, const std::string& text) {
  if (lines.size() == mostLines) lines.erase(lines.begin(), lines.begin() + mostLines / 2);
  lines.push_back({at, text});
  if (!text.empty()) ++commandCount;
  if (OnLine) OnLine(lines.back());
}

RadioAnswer SimRadio::Execute(Time at, const std::string& text) {
  if (session.At != Level::Loader) return commands.Execute(at, text);
  if (Trimmed(text).empty() || text.starts_with('#')) return PromptOnly();
  if (const auto answer = commands.ExecuteSessionWord(text)) return *answer;
  return loader.Execute(text);
}

void SimRadio::Give(Time at, const std::string& text, RadioAnswer answer) {
  Reply reply{text.empty() ? commandCount + 1 : commandCount, text.empty(),
              at + std::max(options.ThinkTime, answer.Busy), std::string(lineEnd),
              answer.Prompt ? Prompt() : ""};
  if (answer.Text) reply.Text += *answer.Text + std::string(lineEnd);
  if (const RadioAnswer* other = Override(text)) {
    reply.Text = *other->Text;
    if (!other->Prompt) reply.Prompt.clear();
  }
  if (answer.Busy > Time(0)) busyUntil = at + answer.Busy;
  nextReport = reply.Start;
  if (OnReply) OnReply(reply);
  if (!IsMuted(reply.Command)) Send(reply.Start, reply.Text + reply.Prompt);
  if (answer.Then != RadioAnswer::Next::Stay) Restart(at, answer.Then);
}

const RadioAnswer* SimRadio::Override(const std::string& text) const {
  const RadioAnswer* found = nullptr;
  std::size_t length = 0;
  for (const auto& [word, answer] : overrides) {
    if (!ValueAfter(text, word) || (found != nullptr && word.size() < length)) continue;
    found = &answer;
    length = word.size();
  }
  return found;
}

void SimRadio::Restart(Time at, RadioAnswer::Next how) {
  const bool toLoader = how == RadioAnswer::Next::EnterLoader;
  busyUntil = at + (toLoader ? options.Loader.EnterTime : options.Loader.StartTime);
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
  if (!IsMuted(commandCount + 1)) Send(busyUntil, std::string(lineEnd) + Prompt());
}

void SimRadio::GiveVerdict(Time at, const std::string& verdict) {
  busyUntil = at + options.Loader.VerifyTime;
  if (IsMuted(commandCount + 1)) return;
  Send(busyUntil, std::string(lineEnd) + verdict + std::string(lineEnd) + Prompt());
}

void SimRadio::RunTimers(Time now) {
  while (const auto due = NextTimer()) {
    if (*due > now) return;
    if (session.At == Level::Loader) {
      GiveVerdict(*due, loader.Abort("NO END RECORD"));
      continue;
    }
    nextReport = *due + options.RssiInterval;
    if (IsMuted(commandCount + 1)) continue;
    Send(*due, "RSSI " + std::to_string(rssi) + " dBm" + std::string(lineEnd));
  }
}

std::optional<Time> SimRadio::NextTimer() const {
  if (session.At == Level::Loader) {
    const auto deadline = loader.Deadline();
    return deadline ? std::max(*deadline, busyUntil) : deadline;
  }
  if (session.Pending == SimSession::Waits::WhileReporting) return nextReport;
  return std::nullopt;
}

void SimRadio::Echo(Time at, std::string_view bytes) {
  if (session.Echo && !IsMuted(commandCount + 1)) Send(at, bytes);
}

std::string SimRadio::Prompt() const {
  if (session.At == Level::Loader) return "LOADER>";
  if (session.Pending == SimSession::Waits::ForNextPage) return "MORE>";
  return session.At == Level::Setup ? "SETUP>" : ">";
}

}  // namespace quillmark::sim
