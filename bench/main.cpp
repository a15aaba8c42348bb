// quillmark_bench: measures the console and prints one table. It is no test: a figure over its
// limit does not make it fail, only one that could not be measured does.

#include <QApplication>
#include <QCommandLineParser>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "firmware_radio.h"
#include "line_feeder.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

// A measurement by its name on the command line.
struct Measurement {
  const char* Name;
  std::vector<Figure> (*Run)(Surroundings&);
};

constexpr Measurement measurements[] = {
    {"read-cycle", MeasureReadCycle},
    {"configurations", MeasureConfigurations},
    {"restore-window", MeasureRestoreWindow},
    {"waking", MeasureWaking},
    {"idle", MeasureIdle},
    {"unplug", MeasureUnplug},
    {"start", MeasureStart},
    {"terminal", MeasureTerminal},
    {"zone-polling", MeasureZonePolling},
    {"firmware", MeasureFirmware},
    {"radio-history", MeasureRadioHistory},
    {"batch", MeasureBatch},
    {"tests", MeasureTestSuite},
};

QString Names() {
  QStringList names;
  for (const Measurement& each : measurements) names += QLatin1String(each.Name);
  return names.join(QLatin1String(", "));
}

// The measurements that are asked for. Throws std::invalid_argument on a name that is none.
QStringList ReadArguments(Surroundings& surroundings) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Measures the console and prints a table.\n\nMeasurements: ") + Names());
  parser.addPositionalArgument(QStringLiteral("NAME"),
                               QStringLiteral("Only these measurements (all)."),
                               QStringLiteral("[NAME...]"));
  const QCommandLineOption stream(QStringLiteral("seconds"),
                                  QStringLiteral("Length of the stream to the terminal (60)."),
                                  QStringLiteral("N"), QStringLiteral("60"));
  const QCommandLineOption tests(QStringLiteral("tests"),
                                 QStringLiteral("Build folder of the test programs (../dev)."),
                                 QStringLiteral("FOLDER"));
  const QCommandLineOption radios(QStringLiteral("radios"),
                                  QStringLiteral("Radios a port in a batch (8)."),
                                  QStringLiteral("N"), QStringLiteral("8"));
  parser.addOptions({stream, tests, radios});
  parser.addHelpOption();
  parser.process(*QCoreApplication::instance());
  surroundings.StreamSeconds = parser.value(stream).toInt();
  surroundings.BatchRadios = std::max(2, parser.value(radios).toInt());
  surroundings.Tests = parser.value(tests).toStdString();
  if (surroundings.StreamSeconds < 1 || surroundings.StreamSeconds > longestStream) {
    throw std::invalid_argument("--seconds takes 1 to " + std::to_string(longestStream));
  }
  for (const QString& name : parser.positionalArguments()) {
    const auto fits = [&name](const Measurement& each) { return name == QLatin1String(each.Name); };
    if (std::ranges::none_of(measurements, fits)) {
      throw std::invalid_argument("there is no measurement " + name.toStdString());
    }
  }
  return parser.positionalArguments();
}

int MeasureAll(Surroundings& surroundings, const QStringList& asked) {
  std::vector<Figure> figures;
  std::vector<Failure> failures;
  for (const Measurement& each : measurements) {
    if (!asked.empty() && !asked.contains(QLatin1String(each.Name))) continue;
    std::fprintf(stderr, "Measuring %s\n", each.Name);
    try {
      for (Figure& figure : each.Run(surroundings)) figures.push_back(std::move(figure));
    } catch (const std::exception& error) {
      failures.push_back({each.Name, error.what()});
    }
  }
  std::fputs(Table(figures, failures).c_str(), stdout);
  return failures.empty() ? 0 : 1;
}

int Run(int argc, char* argv[]) {
  const std::string_view mode = argc > 1 ? argv[1] : "";
  if (mode == "--feed") return Feed(argc > 2 ? std::atoi(argv[2]) : 1);
  if (mode == "--take-firmware") return TakeFirmware();
  Surroundings surroundings;
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("quillmark_bench"));
  QApplication::setQuitOnLastWindowClosed(false);
  return MeasureAll(surroundings, ReadArguments(surroundings));
}

}  // namespace

}  // namespace quillmark::bench

int main(int argc, char* argv[]) {
  try {
    return quillmark::bench::Run(argc, argv);
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "quillmark_bench: %s\n", error.what());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quillmark_bench: %s\n", error.what());
    return 1;
  }
}
