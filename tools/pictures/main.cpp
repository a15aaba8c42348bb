// quillmark-pictures: reads a radio once, prints its rows, leaves a picture of every window in a
// folder, and ends. It drives the console's own windows and needs no user. It is not installed.

#include <QApplication>
#include <QCommandLineParser>
#include <string>

#include "pictures/report.h"
#include "qt/shell.h"

namespace quillmark {

namespace {

// What the command line asks for.
struct Wanted {
  std::string Folder;
  quillmark::Options Options;
};

// Ends the program on arguments that it does not know.
Wanted ReadArguments() {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral(
      "Reads a radio once, prints its settings, and leaves pictures of the console's "
      "windows in FOLDER."));
  parser.addPositionalArgument(QStringLiteral("FOLDER"), QStringLiteral("Where the pictures go."));
  const QCommandLineOption port(QStringLiteral("port"),
                                QStringLiteral("The radio's DEVICE; the stored port without it."),
                                QStringLiteral("DEVICE"));
  const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("Use a dark theme."));
  parser.addOptions({port, dark});
  parser.addHelpOption();
  parser.process(*QCoreApplication::instance());
  if (parser.positionalArguments().size() != 1) parser.showHelp(2);
  return {parser.positionalArguments().front().toStdString(),
          {.Port = parser.value(port).toStdString(), .Dark = parser.isSet(dark)}};
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

int TakePictures(const Wanted& wanted) {
  if (!FoldersAreSound()) return 2;
  IgnorePlatformChatter();
  ReportDialogs silentBoxes;
  Shell shell(wanted.Options, &silentBoxes);
  shell.Machine.Shown.ForgetPlaces();
  Report report(shell.Console, shell.Platform, shell.Machine.Shown, silentBoxes, wanted.Folder);
  silentBoxes.OnTrouble = [&report] { report.GiveUp("The radio could not be read."); };
  report.Start();
  const int code = shell.Run();
  return code != 0 ? code : report.ExitCode();
}

}  // namespace

}  // namespace quillmark

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  quillmark::DescribeApplication("quillmark-pictures");
  return quillmark::TakePictures(quillmark::ReadArguments());
}
