#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "sim/sim_answer.h"
#include "sim/sim_input.h"
#include "sim/sim_loader.h"
#include "sim/sim_output.h"
#include "sim/sim_radio_commands.h"
#include "sim/sim_radio_options.h"
#include "sim/sim_radio_settings.h"
#include "sim/sim_time.h"
#include "sim/sim_zone_counters.h"

namespace quillmark::sim {

// A line that the radio took.
struct ReceivedLine {
  Time at;           // when its carriage return had arrived
  std::string text;  // without it; passwords included, so this stays in memory
};

// A reply on its way out, as the faults of a line may change it.
struct Reply {
  int Command;         // number of the line that it answers, from 1, not counting empty lines
  bool ToEmptyLine;    // answers a bare carriage return; Command is then the next line's number
  Time Start;          // when it may start to leave
  std::string Text;    // between echo and prompt, line ends included
  std::string Prompt;  // may be empty
};

// The simulated radio: a state machine that takes bytes with the time at which they have wholly
// arrived, and gives bytes with the time at which they have wholly left. It knows the whole dialect
// (docs/wire-dialect.md) and refuses what a radio refuses. No operating system in it, no clock and
// no faults: SimLine puts it on a line and adds those. Times given to it never go back.
//
// It handles one line after the other: what comes while it thinks about a line waits. It does what
// a line says when it comes to that line, and answers after its think time.
class SimRadio {
 public:
  explicit SimRadio(SimRadioOptions options = {});
  SimRadio(const SimRadio&) = delete;
  SimRadio& operator=(const SimRadio&) = delete;

  // Bytes have wholly arrived. A host at another baud is noticed and counted, and understands
  // nothing. A hostBaud of 0 is always right.
  void Receive(Time at, std::string_view bytes, int hostBaud = 0);
  // The baud at which the host listens; until this is called, the one at which it last sent.
  void HostListens(int hostBaud) { listeningBaud = hostBaud; }
  // When Departed may have something; nothing when the radio has nothing more to say or do.
  std::optional<Time> NextDeparture() const;
  // Takes what has wholly left by then.
  std::string Departed(Time until);
  // Throws away what has not been taken yet.
  void DropOutput() { output.Clear(); }
  // Bytes that nobody asked for start to leave.
  void Unsolicited(Time at, std::string_view bytes) { Send(at, bytes); }

  // The printed value of a setting without its word, such as "30 dBm" for pwr; also ser and srev,
  // and rx and tx of setup mode. Words in small letters; "" for any other word.
  std::string Setting(std::string_view word) const;
  // Programs as its own front panel would, without a login. False when the radio refuses.
  bool Program(std::string_view word, std::string_view value);
  void SetZoneCounters(int zone, std::int64_t tx, std::int64_t rx, std::int64_t errors);
  void SetRssi(int dBm) { rssi = dBm; }
  // For the next transfers; see SimLoaderOptions. 0: never.
  void SetLoaderFaults(std::int64_t stallAtByte, std::int64_t resetAtByte) {
    loader.SetFaults(stallAtByte, resetAtByte);
  }
  // From now on `word` (a word or a whole line, case does not matter) is answered by this text, raw
  // between echo and prompt, line ends and all. What the word does, it still does.
  void SetReply(std::string_view word, std::string text, bool prompt = true);

  Level At() const { return session.At; }
  bool LoggedIn() const { return session.MayChange(); }  // always true when no password is set
  bool Echo() const { return session.Echo; }
  bool SessionOpen() const { return session.Open; }
  bool Keyed() const { return session.Keyed; }
  int Baud() const { return baud; }
  // The rate at which a line at `lineBaud` moves bytes for this radio; 0: in no time.
  int Pace(int lineBaud) const;
  const SimTransfer& Transfer() const { return loader.Transfer(); }
  const SimRadioOptions& Options() const { return options; }

  // Every line that was taken, empty ones too; the last 20 000 at most.
  const std::vector<ReceivedLine>& Lines() const { return lines; }
  // The lines that are not empty, and those behind the last one that reads exactly `line`.
  std::vector<std::string> Commands() const;
  std::vector<std::string> CommandsAfter(std::string_view line) const;
  int CommandCount() const {
    return input.Commands();
  }  // lines that are not empty, since the start
  int WrongBaudBytes() const { return wrongBaudBytes; }
  int LostBytes() const { return input.Lost(); }  // came while its input buffer was full

  // For the faults of a line and for logs; each may be empty. `Muted` is asked with a command's
  // number before its echo and its reply go out.
  std::function<void(Reply&)> OnReply;
  std::function<bool(int)> Muted;
  std::function<void(const ReceivedLine&)> OnLine;

 private:
  // The line that the radio is busy with.
  struct Work {
    std::string Line;
    int Command;
    bool LineEndShown;
    Time Begun;
    Time Due;                      // when it goes on with it
    std::optional<Reply> Ready{};  // once it has acted
    RadioAnswer::Next Then = RadioAnswer::Next::Stay;
  };

  void Arrive(Time at, char byte, int hostBaud);
  bool Understands(Time at, char byte, int hostBaud);
  void Hear(Time at, char byte);
  bool CanTake() const;
  void Take(Time at, SimInput::Byte byte);
  void TakeTypedByte(Time at, SimInput::Byte byte);
  void TakeImageByte(Time at, const SimInput::Byte& byte);
  void Show(Time at, SimInput::Byte& byte);
  void Begin(Time at, const SimInput::Byte& end, const std::string& text);
  void Remember(Time at, const std::string& text);
  RadioAnswer Execute(Time at, const std::string& text);
  void Act(Time at);
  void Proceed(Time at);
  void Give(Time at);
  Time ThinkTime() const;
  const RadioAnswer* Override(const std::string& text) const;
  void Restart(Time at, RadioAnswer::Next how);
  void GiveVerdict(Time at, const std::string& verdict);
  void RunTimers(Time now);
  void Report(Time at);
  std::optional<Time> NextTimer() const;
  void Send(Time at, std::string_view bytes) { output.Queue(at, bytes, baud, Pace(baud)); }
  void Echo(Time at, std::string_view bytes);
  bool IsMuted(int command) const { return Muted && Muted(command); }
  std::string Prompt() const;

  SimRadioOptions options;
  SimSession session;
  SimRadioSettings settings;
  SimZoneCounters zones;
  SimRadioCommands commands;
  SimLoader loader;
  SimInput input;
  std::optional<Work> work;
  SimOutput output;
  std::mt19937 random;
  std::map<std::string, RadioAnswer, std::less<>> overrides;  // by word or line; Text is raw

  int rssi;  // dBm
  int baud;
  int listeningBaud = 0;
  int foreignBaud = 0;     // of the last carriage returns at a wrong rate
  int foreignReturns = 0;  // how many of them came in a row
  Time deafUntil{0};
  Time nextReport{0};

  std::vector<ReceivedLine> lines;
  int wrongBaudBytes = 0;
};

}  // namespace quillmark::sim
