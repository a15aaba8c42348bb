#include "sim/sim_radio_settings.h"

#include <utility>

#include "sim/sim_words.h"

namespace quillmark::sim {

namespace {

bool MasterOnly(Rule rule) {
  return rule == Rule::MasterAlone || rule == Rule::ClockSync || rule == Rule::SynchronizedRead ||
         rule == Rule::MasterLowPower;
}

std::string OnlyAtMaster(const RadioSetting& row) {
  return std::string(row.Label) + " PROGRAMMABLE ONLY AT MASTER";
}

}  // namespace

SimRadioSettings::SimRadioSettings(RadioTraits radioTraits, std::string_view mode,
                                   std::string_view unit)
    : traits(std::move(radioTraits)) {
  for (const RadioSetting& row : SettingRows()) values[std::string(row.Word)] = row.Factory;
  values["mode"] = mode;
  values["unit"] = unit;
}

const RadioSetting* SimRadioSettings::Row(std::string_view word) const {
  const int revision = RevisionNumber(traits.Revision);
  for (const RadioSetting& row : SettingRows()) {
    if (row.Word == word && revision >= row.From && revision < row.Below) return &row;
  }
  return nullptr;
}

std::string SimRadioSettings::Read(const RadioSetting& row) const {
  if (!Offered(row)) return "NOT A SELECTED OPTION";
  const std::string value = Value(row.Word);
  const bool inapplicable = (row.Applies == Rule::NeedsCtsKey && Value("device") == "DCE") ||
                            (row.Applies == Rule::NotAtMaster && IsMaster());
  if (inapplicable) return std::string(row.Label) + " n/a";
  if (row.Applies == Rule::ClockSync && (!IsMaster() || value == "NONE")) return "n/a";
  if (row.Applies == Rule::SynchronizedRead && !IsMaster() && !traits.Synchronised) {
    return OnlyAtMaster(row);
  }
  return row.Label.empty() ? value : std::string(row.Label) + " " + value;
}

std::string SimRadioSettings::Program(const RadioSetting& row, std::string_view typed) {
  if (!Offered(row)) return "NOT A SELECTED OPTION";
  if (MasterOnly(row.Applies) && !IsMaster()) return OnlyAtMaster(row);
  const auto checked = CheckedValue(row, Value(row.Word), typed);
  if (!checked) return "INVALID ENTRY";
  values[std::string(row.Word)] = *checked;
  return "PROGRAMMED OK";
}

std::string SimRadioSettings::Value(std::string_view word) const {
  const auto found = values.find(word);
  return found == values.end() ? std::string() : found->second;
}

bool SimRadioSettings::Offered(const RadioSetting& row) const {
  switch (row.Applies) {
    case Rule::LowPower:
    case Rule::MasterLowPower:
      return traits.LowPower;
    case Rule::SoftwareRtu:
      return traits.RtuSelected;
    default:
      return true;
  }
}

}  // namespace quillmark::sim
