// quillmark-radio: the simulated radio on a pseudo-terminal, for people and for end-to-end tests.

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <string>

#include "sim/line_faults.h"
#include "sim/pty/pty_server.h"
#include "sim/sim_line.h"
#include "sim/sim_radio.h"

namespace quillmark::sim {
namespace {

// The options of the program.
struct ProgramOptions {
  SimRadioOptions Radio;
  LineFaults Faults;
  PtyOptions Pty;
  std::string LogFile;
  bool TransferReport = false;
};

CLI::Validator NotNegative() {
  const auto check = [](const std::string& number) {
    return number.starts_with('-') ? std::string("not below 0") : std::string();
  };
  return {check, ""};
}

// A whole number of milliseconds, stored as a time.
CLI::Option* AddMilliseconds(CLI::App& app, const std::string& name, Time& time,
                             const std::string& help) {
  return app
      .add_option_function<std::int64_t>(
          name, [&time](std::int64_t ms) { time = std::chrono::milliseconds(ms); }, help)
      ->check(NotNegative())
      ->type_name("MS");
}

void AddRadioOptions(CLI::App& app, SimRadioOptions& radio) {
  const std::string group = "The radio";
  app.add_option("--revision", radio.Revision, "firmware revision (3.2.0)")->group(group);
  app.add_option("--mode", radio.Mode, "M master, R remote, X extension (R)")
      ->check(CLI::IsMember({'M', 'R', 'X'}))
      ->group(group);
  app.add_option("--serial", radio.SerialNumber, "serial number, 8 digits (00123456)")
      ->check([](const std::string& digits) {
        const bool good =
            digits.size() == 8 && digits.find_first_not_of("0123456789") == std::string::npos;
        return good ? std::string() : std::string("a serial number has 8 digits");
      })
      ->group(group);
  app.add_option("--password", radio.Password, "password that is set, 1 to 4 characters (none)")
      ->group(group);
  app.add_flag("--logged-in", radio.LoggedIn, "start logged in")->group(group);
  const auto addLack = [&](const std::string& name, bool& has, const std::string& help) {
    app.add_flag_callback(
           name, [&has] { has = false; }, help)
        ->group(group);
  };
  addLack("--no-low-power", radio.LowPower, "without the low power feature");
  addLack("--no-rtu", radio.RtuSelected, "without the software RTU feature");
  addLack("--not-synchronised", radio.Synchronised, "hears no master");
  app.add_option("--rssi", radio.Rssi, "signal level that rssi reports, dBm (-97)")->group(group);
  app.add_option("--zone-traffic", radio.ZoneTraffic,
                 "packets a second that each zone counts (0; 20 if no number is given)")
      ->expected(0, 1)
      ->default_str("20")
      ->group(group);
  app.add_flag("--in-setup", radio.StartInSetup, "start in setup mode")->group(group);
  app.add_flag("--in-loader", radio.StartInLoader, "start in the loader, without firmware")
      ->group(group);
  app.add_option("--seed", radio.Seed, "seed of everything random (1)")->group(group);
}

void AddLoaderOptions(CLI::App& app, SimLoaderOptions& loader) {
  const std::string group = "The firmware loader";
  app.add_option_function<std::int64_t>(
         "--loader-think-ms",
         [&loader](std::int64_t ms) { loader.ThinkTime = std::chrono::milliseconds(ms); },
         "for each line of the loader (as --think-ms)")
      ->check(NotNegative())
      ->type_name("MS")
      ->group(group);
  AddMilliseconds(app, "--enter-ms", loader.EnterTime, "to erase the old firmware (3000)")
      ->group(group);
  AddMilliseconds(app, "--erase-ms", loader.EraseTime, "for ERASE (1500)")->group(group);
  AddMilliseconds(app, "--verify-ms", loader.VerifyTime, "to the verdict on an image (200)")
      ->group(group);
  AddMilliseconds(app, "--start-ms", loader.StartTime, "to start the new firmware (1000)")
      ->group(group);
  app.add_option("--stall-at-byte", loader.StallAtByte, "go deaf at the Nth byte of an image")
      ->group(group);
  app.add_option("--reset-at-byte", loader.ResetAtByte, "start anew at the Nth byte of an image")
      ->group(group);
}

void AddPromptnessOptions(CLI::App& app, SimRadioOptions& radio) {
  const std::string group = "How soon it answers";
  AddMilliseconds(app, "--think-ms", radio.ThinkTime,
                  "for each line, one after the other, before its reply (5)")
      ->group(group);
  app.add_flag("--echo-in-turn", radio.EchoesInTurn,
               "what comes while it thinks is echoed when its turn comes, not as it arrives")
      ->group(group);
  app.add_flag("--act-late", radio.ActsLate,
               "do what a line says when it is answered (deco, say), not when its turn comes")
      ->group(group);
  app.add_flag("--overlap", radio.Overlaps,
               "think about all lines at the same time; a line end is echoed with the reply")
      ->group(group);
}

void AddLineOptions(CLI::App& app, ProgramOptions& options) {
  const std::string group = "The line";
  app.add_option_function<std::string>(
         "--pace",
         [&options](const std::string& rate) {
           options.Radio.Paced = rate != "none";
           options.Radio.PaceBaud = rate == "none" ? 0 : std::stoi(rate);
         },
         "bytes pass at this rate, or in no time (as the port is set)")
      ->check(CLI::IsMember({"19200", "115200", "none"}))
      ->group(group);
  app.add_option("--link", options.Pty.Link, "symbolic link to the device, removed at the end")
      ->group(group);
  app.add_option_function<std::string>(
         "--device-mode",
         [&options](const std::string& octal) {
           options.Pty.Mode = static_cast<unsigned>(std::stoul(octal, nullptr, 8));
         },
         "file mode of the device, octal (0666)")
      ->check([](const std::string& octal) {
        const bool good = !octal.empty() && octal.size() <= 4 &&
                          octal.find_first_not_of("01234567") == std::string::npos;
        return good ? std::string() : std::string("an octal mode such as 0666");
      })
      ->group(group);
  app.add_option_function<std::int64_t>(
         "--reappear-ms",
         [&options](std::int64_t ms) { options.Pty.Reappear = std::chrono::milliseconds(ms); },
         "after a hang-up a new device comes up under the link")
      ->check(NotNegative())
      ->type_name("MS")
      ->group(group);
  app.add_option("--log", options.LogFile, "file for the lines received, secrets masked")
      ->group(group);
  app.add_flag("--transfer-report", options.TransferReport, "report each firmware transfer")
      ->group(group);
}

void AddFaultOptions(CLI::App& app, LineFaults& faults) {
  const std::string group = "Faults (bytes and commands count from 1; a command is no empty line)";
  for (const FaultOption& fault : FaultOptions()) {
    app.add_option(std::string(fault.Name), faults.*fault.Field, std::string(fault.Help))
        ->check(NotNegative())
        ->type_name("N")
        ->group(group);
  }
  app.add_option("--extra-bytes", faults.ExtraBytes, "the bytes of --extra-bytes-at (ESC ?)")
      ->group(group);
}

double Seconds(Time time) { return static_cast<double>(time.count()) / 1e6; }

void Report(const SimTransfer& transfer) {
  const char* verdict = !transfer.Ended ? "not ended" : transfer.Sound ? "sound" : "refused";
  std::printf("transfer: %lld bytes, %d records, %lld data bytes, first %.6f s, last %.6f s, %s\n",
              static_cast<long long>(transfer.Bytes), transfer.Records,
              static_cast<long long>(transfer.DataBytes), Seconds(transfer.First),
              Seconds(transfer.Last), verdict);
  std::fflush(stdout);
}

// Reports a transfer once, when its verdict is out, or at the end if it never came.
class TransferReporter {
 public:
  explicit TransferReporter(const SimRadio& itsRadio) : radio(itsRadio) {}
  void Look() {
    if (radio.Transfer().Ended && !reported) Report(radio.Transfer());
    reported = radio.Transfer().Ended;
  }
  void Finish() const {
    if (!reported && radio.Transfer().Bytes > 0) Report(radio.Transfer());
  }

 private:
  const SimRadio& radio;
  bool reported = false;
};

void Serve(const ProgramOptions& options) {
  SimRadio radio(options.Radio);
  SimLine line(radio, options.Faults);
  line.SetLogLimit(0);
  std::ofstream log;
  if (!options.LogFile.empty()) {
    log.exceptions(std::ios::failbit);
    log.open(options.LogFile, std::ios::app);
    log.exceptions(std::ios::goodbit);
    radio.OnLine = [&log](const ReceivedLine& received) {
      log << Seconds(received.at) << " s: " << SimRadioCommands::Masked(received.text) << std::endl;
    };
  }
  TransferReporter reporter(radio);
  PtyServer server(line, options.Pty);
  server.OnDevice = [](const std::string& path) { std::cout << "radio on " << path << std::endl; };
  if (options.TransferReport) server.OnTurn = [&reporter] { reporter.Look(); };
  server.Run();
  if (options.TransferReport) reporter.Finish();
  if (radio.LostBytes() > 0) {
    std::cout << "lost " << radio.LostBytes() << " bytes: input buffer full" << std::endl;
  }
  if (line.HungUp()) std::cout << "hung up" << std::endl;
}

int Run(int argc, char** argv) {
  CLI::App app(
      "A simulated Quillmark SS radio on a pseudo-terminal.\n\n"
      "Prints \"radio on DEVICE\" and serves until it is interrupted. Connect the console, or any\n"
      "terminal program at 19200 baud, to the device or to the link. SIGUSR1 hangs up the line.");
  app.name("quillmark-radio");
  app.set_version_flag("--version", "quillmark-radio " QUILLMARK_VERSION);
  app.footer("Example: quillmark-radio --link /tmp/radio --mode M --password abcd");
  ProgramOptions options;
  AddRadioOptions(app, options.Radio);
  AddLoaderOptions(app, options.Radio.Loader);
  AddPromptnessOptions(app, options.Radio);
  AddLineOptions(app, options);
  AddFaultOptions(app, options.Faults);
  CLI11_PARSE(app, argc, argv);
  if (options.Radio.Password.size() > 4) {
    std::cerr << "quillmark-radio: a password has at most 4 characters\n";
    return 2;
  }
  Serve(options);
  return 0;
}

}  // namespace
}  // namespace quillmark::sim

int main(int argc, char** argv) {
  try {
    return quillmark::sim::Run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quillmark-radio: %s\n", error.what());
    return 1;
  }
}
