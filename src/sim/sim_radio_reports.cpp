#include "sim/sim_radio_reports.h"

#include <initializer_list>

namespace quillmark::sim {

namespace {

constexpr std::string_view lineEnd = "\r\n";

std::string OnOff(bool on) { return on ? "ON" : "OFF"; }

std::string Lines(std::initializer_list<std::string> lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += lineEnd;
    text += line;
  }
  return text;
}

}  // namespace

std::string ReleaseText(std::string_view revision) {
  return Lines({"77-1234A01", std::string(revision) + "  01Jan2009"});
}

std::string SyncText(const SimRadioSettings& settings) {
  if (settings.IsMaster() || !settings.Traits().Synchronised) return "NOT AVAILABLE";
  return "DEPTH 1 UNIT 1000 XADDR 0";
}

std::string FeatureText(const SimRadioSettings& settings) {
  // No word of a setting stands here: a file keeps this line, and its readers look for such words.
  return "Diagnostics ON, Low Power " + OnOff(settings.Traits().LowPower) + ", Poll Simulator " +
         OnOff(settings.Traits().RtuSelected);
}

std::vector<std::string> StatusPages(const SimSession& session, const SimRadioSettings& settings,
                                     const SimRadioOptions& options) {
  return {
      Lines({"STATUS", "Serial number      " + options.SerialNumber,
             "Firmware           " + settings.Traits().Revision,
             "Radio mode         " + settings.Value("mode"),
             "Network address    " + settings.Value("addr")}),
      Lines({"ALARMS", "Major alarms       none", "Minor alarms       none",
             "Alarm mask         " + settings.Value("amask")}),
      Lines({"LINK", "Synchronised       " + OnOff(settings.Traits().Synchronised),
             "Power              " + settings.Value("pwr"),
             "Transmitter keyed  " + OnOff(session.Keyed)}),
  };
}

}  // namespace quillmark::sim
