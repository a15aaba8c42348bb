#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sim/sim_answer.h"
#include "sim/sim_radio_options.h"
#include "sim/sim_radio_settings.h"
#include "sim/sim_radio_table.h"
#include "sim/sim_time.h"
#include "sim/sim_zone_counters.h"

namespace quillmark::sim {

// What the radio knows of the talk on its diagnostic port: level, login, echo and what it waits
// for. Shared by SimRadio, which owns it, and SimRadioCommands, which changes it.
struct SimSession {
  enum class Waits {
    No,
    ForConfirmation,  // "ARE YOU SURE?" is out
    ForNextPage,      // "MORE>" is out
    WhileReporting    // signal reports go out until a carriage return
  };

  Level At = Level::Command;
  Waits Pending = Waits::No;
  std::size_t NextPage = 0;  // of the paged report, from 0
  bool Echo = true;
  bool Open = false;
  bool Keyed = false;
  bool LoggedIn = false;
  std::string Password;
  int RxKilohertz = 915'000;
  int TxKilohertz = 915'000;

  bool MayChange() const { return Password.empty() || LoggedIn; }
};

// Carries out the lines that the radio takes at its command level and in setup mode. It answers; it
// knows nothing of bytes and pacing.
class SimRadioCommands {
 public:
  SimRadioCommands(SimSession& itsSession, SimRadioSettings& itsSettings, SimZoneCounters& itsZones,
                   const SimRadioOptions& itsOptions)
      : session(itsSession), settings(itsSettings), zones(itsZones), options(itsOptions) {}

  RadioAnswer Execute(Time at, std::string_view line);
  // OPEN, CLOS, deco and eeco, which the loader knows as well; nothing for any other line.
  std::optional<RadioAnswer> ExecuteSessionWord(std::string_view line);

  // A line as it may be shown to people or written to a log: values of secret words are masked, and
  // of an unknown line only its length is told, since it may be a mistyped password.
  static std::string Masked(std::string_view line);

 private:
  struct Word;
  static const Word words[];

  RadioAnswer Finish(const Word& word, Time at, std::string_view value);
  RadioAnswer ExecuteSetting(const RadioSetting& row, std::string_view value, bool programs);
  std::optional<RadioAnswer> ExecutePending(std::string_view line);
  RadioAnswer NextPage();

  RadioAnswer Serial(Time at, std::string_view value);
  RadioAnswer Release(Time at, std::string_view value);
  RadioAnswer Temperature(Time at, std::string_view value);
  RadioAnswer AlarmCode(Time at, std::string_view value);
  RadioAnswer Status(Time at, std::string_view value);
  RadioAnswer ShowSync(Time at, std::string_view value);
  RadioAnswer ShowPower(Time at, std::string_view value);
  RadioAnswer Features(Time at, std::string_view value);
  RadioAnswer SignalReports(Time at, std::string_view value);
  RadioAnswer ZoneData(Time at, std::string_view value);
  RadioAnswer ZoneClear(Time at, std::string_view value);
  RadioAnswer EnterSetup(Time at, std::string_view value);
  RadioAnswer LeaveSetup(Time at, std::string_view value);
  RadioAnswer KeyTransmitter(Time at, std::string_view value);
  RadioAnswer UnkeyTransmitter(Time at, std::string_view value);
  RadioAnswer ReceiveFrequency(Time at, std::string_view value);
  RadioAnswer TransmitFrequency(Time at, std::string_view value);
  RadioAnswer Frequency(int& kilohertz, std::string_view word, std::string_view value);
  RadioAnswer Login(Time at, std::string_view value);
  RadioAnswer SetPassword(Time at, std::string_view value);
  RadioAnswer EncryptionCode(Time at, std::string_view value);
  RadioAnswer NewFirmware(Time at, std::string_view value);

  SimSession& session;
  SimRadioSettings& settings;
  SimZoneCounters& zones;
  const SimRadioOptions& options;
};

}  // namespace quillmark::sim
