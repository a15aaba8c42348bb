#include "qt/options.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <string_view>

#include "app/version.h"

namespace quillmark {

namespace {

// "ttyUSB0" stands for the device of that name; other paths are made to hold from any folder.
std::string DevicePath(const QString& named) {
  if (named.isEmpty()) return {};
  const bool bare = !named.contains(QLatin1Char('/')) && !QFileInfo::exists(named);
  return QFileInfo(bare ? QStringLiteral("/dev/") + named : named).absoluteFilePath().toStdString();
}

}  // namespace

std::optional<QString> TextAskedFor(int argc, const char* const* argv) {
  constexpr std::array<std::string_view, 5> words{"--help", "-h", "--help-all", "--version", "-v"};
  const auto* const asked = std::find_first_of(argv, argv + argc, words.begin(), words.end());
  if (asked == argv + argc) return std::nullopt;
  return QString::fromLocal8Bit(*asked);
}

std::variant<Options, Printed> ReadOptions(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Configures and watches Quillmark SS data radios on a serial port."));
  const QCommandLineOption port(QStringLiteral("port"),
                                QStringLiteral("Connect at once to the radio on DEVICE."),
                                QStringLiteral("DEVICE"));
  const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("Use a dark theme."));
  const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                   QStringLiteral("Print the version."));
  parser.addOptions({port, dark, version});
  const auto help = parser.addHelpOption();
  if (!parser.parse(arguments)) {
    return Printed{"quillmark-console: " + parser.errorText().toStdString() + "\n", 2};
  }
  if (parser.isSet(help)) return Printed{parser.helpText().toStdString()};
  if (parser.isSet(version)) return Printed{"quillmark-console " + std::string(VersionText) + "\n"};
  if (!parser.positionalArguments().isEmpty()) {
    return Printed{"quillmark-console: unexpected argument " +
                       parser.positionalArguments().front().toStdString() + "\n",
                   2};
  }
  return Options{DevicePath(parser.value(port)), parser.isSet(dark)};
}

}  // namespace quillmark
