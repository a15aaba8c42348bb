#include <QApplication>
#include <QIcon>
#include <cstdio>
#include <optional>

#include "app/console.h"
#include "app/version.h"
#include "qt/end_signals.h"
#include "qt/machine.h"
#include "qt/options.h"
#include "qt/qt_desktop.h"
#include "qt/report.h"
#include "qt/start_report.h"
#include "qt/store_trouble_boxes.h"
#include "qt/theme.h"

namespace quillmark {

namespace {

int Run(const Options& options) {
  Machine machine(options.Port);
  ReportDialogs silentBoxes;
  Platform platform =
      options.Report.empty() ? machine.AsPlatform(machine.Boxes) : machine.AsPlatform(silentBoxes);
  Console console(platform);
  struct Closing {
    QtWindows& windows;
    ~Closing() { windows.CloseAll(); }
  } closing{machine.Shown};

  std::optional<Report> report;
  if (!options.Report.empty()) {
    report.emplace(console, platform, machine.Shown, silentBoxes, options.Report);
    silentBoxes.OnTrouble = [&report] { report->GiveUp("The radio could not be read."); };
    report->Start();
  }
  std::optional<StoreTroubleBoxes> storeTroubles;
  if (!report && !options.StartReport) {
    storeTroubles.emplace(machine.Store, machine.Shown, machine.Boxes, machine.Events);
  }
  std::optional<StartReport> startReport;
  if (options.StartReport) startReport.emplace(machine.Shown, machine.Events);
  // A second signal ends a program that is held up.
  bool asked = false;
  const EndSignals endSignals([&] {
    if (asked) return machine.Events.Quit();
    asked = true;
    machine.Events.Deliver([&console] { console.Form_Unload(); });
    asked = false;
  });
  machine.Events.Deliver([&console] { console.Start(); });
  const int code = machine.Events.Quitting() ? 0 : QApplication::exec();
  if (!machine.Shown.Misfit().empty()) {
    std::fprintf(stderr, "quillmark-console: %s\n", machine.Shown.Misfit().c_str());
    return 2;
  }
  return report ? report->ExitCode() : code;
}

QtMessageHandler usualMessages = nullptr;

// Without a screen the platform complains of each window that it can't hint at; that helps nobody.
void IgnorePlatformChatter() {
  usualMessages = qInstallMessageHandler(
      [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (text.startsWith(QLatin1String("This plugin does not support"))) return;
        usualMessages(type, context, text);
      });
}

}  // namespace

}  // namespace quillmark

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("quillmark-console"));
  QApplication::setApplicationVersion(QLatin1String(quillmark::VersionText));
  QApplication::setDesktopFileName(QStringLiteral("quillmark-console"));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillmark-console.svg")));
  QApplication::setQuitOnLastWindowClosed(false);

  const auto read = quillmark::ReadOptions(QApplication::arguments());
  if (const auto* printed = std::get_if<quillmark::Printed>(&read)) {
    std::fputs(printed->Text.c_str(), printed->ExitCode == 0 ? stdout : stderr);
    return printed->ExitCode;
  }
  const auto& options = std::get<quillmark::Options>(read);
  // Before anything is looked for below them.
  if (const auto trouble = quillmark::FolderTrouble()) {
    std::fprintf(stderr, "quillmark-console: %s\n", trouble->c_str());
    return 2;
  }
  if (!options.Report.empty()) quillmark::IgnorePlatformChatter();
  if (options.Dark) quillmark::UseDarkTheme();
  return quillmark::Run(options);
}
