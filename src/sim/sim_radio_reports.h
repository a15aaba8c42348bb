#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sim/sim_radio_commands.h"
#include "sim/sim_radio_options.h"
#include "sim/sim_radio_settings.h"

namespace quillmark::sim {

// The radio's longer reply texts, as they stand between the echo's line end and the one in front of
// the prompt. Pure functions; SimRadioCommands calls them.

// Part number, line end, revision and build date.
std::string ReleaseText(std::string_view revision);
// What the radio is synchronised to.
std::string SyncText(const SimRadioSettings& settings);
// Each feature with ON or OFF.
std::string FeatureText(const SimRadioSettings& settings);
// The status report, a text for each page.
std::vector<std::string> StatusPages(const SimSession& session, const SimRadioSettings& settings,
                                     const SimRadioOptions& options);

}  // namespace quillmark::sim
