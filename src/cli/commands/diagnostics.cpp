#include "cli/commands/diagnostics.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>

#include "cli/watch.h"
#include "diagnostics/frmRSSI.h"
#include "diagnostics/zone_replies.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

struct WatchOptions {
  bool Csv = false;
  int Seconds = 0;
};

// What the radio has reported since; the window shows its reports as they come.
std::optional<Sample> TakeLevel(frmRSSI& window) {
  const auto level = NumericValue(Trim(window.Text1.Text()));
  window.Text1.Text = "";
  if (!level) return std::nullopt;
  return Sample{std::to_string(std::lround(*level))};
}

Exit WatchSignal(Workbench& bench, const WatchOptions& options) {
  Watch watch(bench, {.Headings = {"dBm"}, .Names = {"dbm"}}, options.Csv, options.Seconds);
  // A master has no such level: that shows when it has been read.
  bench.Radio().ConnectAndRead();
  Button& button = bench.Radio().Main().ButtonRSSI;
  if (!button.Reachable()) {
    throw Failure{Exit::NoRadio, "This radio reports no signal level.", "Masters don't."};
  }
  bench.Machine().Shown.Expect("frmRSSI", [&](Form& form) {
    auto& window = dynamic_cast<frmRSSI&>(form);
    watch.Run([&] { return window.Loaded() && window.Timer1.Enabled(); },
              [&] { return TakeLevel(window); });
    if (window.Loaded()) window.Unload();
  });
  return watch.Finish([&button] { button.Click(); });
}

constexpr std::array<std::string_view, 3> fields{"TX TOTAL", "RX TOTAL", "RX ERROR"};

// By zone; what the radio did not tell is empty.
using Counters = std::array<std::array<std::optional<std::int64_t>, fields.size()>, ZoneCount>;

std::optional<Counters> CountersIn(const std::string& reply) {
  Counters counters;
  // The last value may be shorter than its field.
  const std::string padding(16, ' ');
  const bool whole =
      ReadZoneCounters(reply + padding, fields,
                       [&](std::size_t zone, std::size_t field, std::optional<std::int64_t> value) {
                         counters[zone][field] = value;
                       });
  return whole ? std::optional(counters) : std::nullopt;
}

std::optional<Counters> AskCounters(Console& logic) {
  try {
    const LineTurns::Turn turn(logic.Talk().Turns);
    const auto reply = logic.Talk().Ask({.Command = "ZONE DATA", .ManyLines = true});
    return reply ? CountersIn(*reply) : std::nullopt;
  } catch (const SerialError&) {
    // The end of the link ends the watch.
    return std::nullopt;
  }
}

Sample AllCounters(const Counters& counters) {
  Sample sample;
  for (const auto& zone : counters) {
    for (const auto& value : zone) sample.push_back(value ? std::to_string(*value) : "");
  }
  return sample;
}

// How much of what a zone has received is usable, in percent.
Sample Usable(const Counters& counters) {
  Sample sample;
  for (const auto& [sent, received, errors] : counters) {
    const std::int64_t total = received.value_or(0);
    const std::int64_t good = total - errors.value_or(0);
    const bool known = total > 0 && errors;
    sample.push_back(known ? std::to_string(std::clamp<std::int64_t>(100 * good / total, 0, 100))
                           : "");
  }
  return sample;
}

WatchForm ZoneForm(const std::vector<std::string>& names, std::size_t width) {
  WatchForm form{.Headings = {}, .Joined = names.size(), .Width = width, .Names = {}};
  for (std::size_t zone = 1; zone <= ZoneCount; ++zone) {
    const std::string number = std::to_string(zone);
    form.Headings.push_back("Zone " + number);
    const std::string head = "zone" + number + "_";
    for (const std::string& name : names) form.Names.push_back(head + name);
  }
  return form;
}

Exit WatchZones(Workbench& bench, const WatchOptions& options, const WatchForm& form,
                Sample (*sampleOf)(const Counters&)) {
  Watch watch(bench, form, options.Csv, options.Seconds);
  CliConsole& radio = bench.Radio();
  radio.Connect();
  // Nobody else talks meanwhile: no read by the clock, say.
  const LineTurns::Turn turn(radio.Logic().Talk().Turns);
  const auto take = [&]() -> std::optional<Sample> {
    const auto counters = AskCounters(radio.Logic());
    return counters ? std::optional(sampleOf(*counters)) : std::nullopt;
  };
  return watch.Finish([&] { watch.Run([&] { return radio.Logic().Talk().Open(); }, take); });
}

Exit Zones(Workbench& bench, const WatchOptions& options) {
  constexpr std::size_t width = 16;
  return WatchZones(bench, options, ZoneForm({"sent", "received", "errors"}, width), AllCounters);
}

Exit Quality(Workbench& bench, const WatchOptions& options) {
  constexpr std::size_t width = 8;
  return WatchZones(bench, options, ZoneForm({"usable"}, width), Usable);
}

void Add(CLI::App& app, Action& chosen, const std::string& name, const char* help,
         Exit (*run)(Workbench&, const WatchOptions&)) {
  const auto options = std::make_shared<WatchOptions>();
  CLI::App* command = app.add_subcommand(name, help);
  command->add_flag("--csv", options->Csv, "print comma-separated values");
  command->add_option("--seconds", options->Seconds, "end after that time (when interrupted)")
      ->type_name("N")
      ->check(CLI::PositiveNumber);
  command->footer("Example: quillmark " + name + " --seconds 60 --csv");
  command->callback([&chosen, options, run] {
    chosen = [options, run](Workbench& bench) { return run(bench, *options); };
  });
}

}  // namespace

void AddSignal(CLI::App& app, Action& chosen) {
  Add(app, chosen, "signal", "Print the level of the signal that the radio receives", WatchSignal);
}

void AddZones(CLI::App& app, Action& chosen) {
  Add(app, chosen, "zones", "Print each zone's packets: sent/received/with errors", Zones);
}

void AddQuality(CLI::App& app, Action& chosen) {
  Add(app, chosen, "quality", "Print how much each zone receives that is usable, in percent",
      Quality);
}

}  // namespace quillmark
