#include "cli/commands/simulate.h"

#include <CLI/CLI.hpp>

#include "cli/json.h"
#include "sim/pty/pty_server.h"
#include "sim/sim_line.h"
#include "sim/sim_radio.h"

namespace quillmark {

namespace {

// Which radio is played, and where.
struct Simulated {
  sim::SimRadioOptions Radio;
  sim::PtyOptions Pty;
};

// Its own signal handling ends it: to be ended so is its usual end.
Exit Simulate(Workbench& bench, const Simulated& options) {
  sim::SimRadio radio(options.Radio);
  sim::SimLine line(radio);
  line.SetLogLimit(0);
  try {
    sim::PtyServer server(line, options.Pty);
    server.OnDevice = [&bench](const std::string& device) {
      bench.Out.Line(bench.Options.Json
                         ? JsonObject().Add("version", "1").Add("device", JsonText(device)).Text()
                         : device);
    };
    server.Run();
  } catch (const std::system_error& error) {
    throw Failure{Exit::NoRadio, std::string("No line for the radio: ") + error.what() + ".", " "};
  }
  return Exit::Done;
}

}  // namespace

void AddSimulate(CLI::App& app, Action& chosen) {
  const auto options = std::make_shared<Simulated>();
  CLI::App* command = app.add_subcommand(
      "simulate", "Start a simulated radio, print its device, serve until interrupted");
  command->add_option("--revision", options->Radio.Revision, "firmware revision (3.2.0)");
  command->add_option("--mode", options->Radio.Mode, "M master, R remote, X extension (R)")
      ->check(CLI::IsMember({'M', 'R', 'X'}));
  command->add_option("--link", options->Pty.Link, "symbolic link to the device");
  command->footer("\"quillmark-radio\" has more of it: faults, speeds, passwords.");
  command->callback([&chosen, options] {
    chosen = [options](Workbench& bench) { return Simulate(bench, *options); };
  });
}

}  // namespace quillmark
