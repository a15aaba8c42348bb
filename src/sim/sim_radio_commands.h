#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sim/sim_answer.h"
#include "sim/sim_radio_options.h"
#include "sim/sim_radio_settings.h"
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
// knows nothing of bytes and pacing. What it is given must outlive it.
class SimRadioCommands {
 public:
  SimRadioCommands(SimSession& itsSession, SimRadioSettings& itsSettings, SimZoneCounters& itsZones,
                   const SimRadioOptions& itsOptions)
      : session(itsSession), settings(itsSettings), zones(itsZones), options(itsOptions) {}

  Answer Execute(Time at, std::string_view line);
  // OPEN, CLOS, deco and eeco, which the loader knows as well; nothing for any other line.
  std::optional<Answer> ExecuteSessionWord(std::string_view line);

  // A line as it may be shown to people or written to a log: values of secret words are masked, and
  // of an unknown line only its length is told, since it may be a mistyped password.
  static std::string Masked(std::string_view line);

 private:
  struct Word;
  static const Word words[];

  Answer Finish(const Word& word, Time at, std::string_view value);
  Answer ExecuteSetting(const SettingRow& row, std::string_view value, bool programs);
  std::optional<Answer> ExecutePending(std::string_view line);
  Answer NextPage();

  Answer Serial(Time at, std::string_view value);
  Answer Release(Time at, std::string_view value);
  Answer Temperature(Time at, std::string_view value);
  Answer AlarmState(Time at, std::string_view value);
  Answer AlarmCode(Time at, std::string_view value);
  Answer Status(Time at, std::string_view value);
  Answer ShowSync(Time at, std::string_view value);
  Answer ShowPower(Time at, std::string_view value);
  Answer Features(Time at, std::string_view value);
  Answer SignalReports(Time at, std::string_view value);
  Answer ZoneData(Time at, std::string_view value);
  Answer ZoneClear(Time at, std::string_view value);
  Answer EnterSetup(Time at, std::string_view value);
  Answer LeaveSetup(Time at, std::string_view value);
  Answer KeyTransmitter(Time at, std::string_view value);
  Answer UnkeyTransmitter(Time at, std::string_view value);
  Answer ReceiveFrequency(Time at, std::string_view value);
  Answer TransmitFrequency(Time at, std::string_view value);
  Answer Frequency(int& kilohertz, std::string_view word, std::string_view value);
  Answer Login(Time at, std::string_view value);
  Answer SetPassword(Time at, std::string_view value);
  Answer EncryptionCode(Time at, std::string_view value);
  Answer NewFirmware(Time at, std::string_view value);

  SimSession& session;
  SimRadioSettings& settings;
  SimZoneCounters& zones;
  const SimRadioOptions& options;
};

}  // namespace quillmark::sim
