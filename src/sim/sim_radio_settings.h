#pragma once

#include <map>
#include <string>
#include <string_view>

#include "sim/sim_radio_table.h"

namespace quillmark::sim {

// What the radio is built with and what it hears; decides which settings it has and shows.
struct RadioTraits {
  std::string Revision = "3.2.0";
  bool LowPower = true;      // the low power feature was bought
  bool RtuSelected = true;   // the software RTU feature was bought
  bool Synchronised = true;  // hears a master; a master itself needs none
};

// The radio's memory of its settings: keeps what was programmed and says how each one reads, by the
// rules of revision, mode and features. Knows nothing of lines, logins or time. Owned by SimRadio.
class SimRadioSettings {
 public:
  SimRadioSettings(RadioTraits traits, std::string_view mode, std::string_view unit);

  RadioTraits& Traits() { return traits; }
  const RadioTraits& Traits() const { return traits; }
  bool IsMaster() const { return Value("mode") == "M"; }

  // The row that this revision has for the word (small letters), or null.
  const RadioSetting* Row(std::string_view word) const;
  // The reply text to the bare word.
  std::string Read(const RadioSetting& row) const;
  // The reply text to the word with a value; changes the setting when it is "PROGRAMMED OK".
  std::string Program(const RadioSetting& row, std::string_view typed);
  // The value as printed, without the word; "" for a word that is no setting.
  std::string Value(std::string_view word) const;

 private:
  bool Offered(const RadioSetting& row) const;

  RadioTraits traits;
  std::map<std::string, std::string, std::less<>> values;
};

}  // namespace quillmark::sim
