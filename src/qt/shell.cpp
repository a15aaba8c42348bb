#include "qt/shell.h"

#include <QApplication>
#include <QIcon>
#include <cstdio>

#include "app/version.h"
#include "qt/base/end_signals.h"
#include "qt/base/program_files.h"
#include "qt/widgets/accessible_widgets.h"

namespace quillmark {

namespace {

void Tell(const std::string& trouble) {
  std::fprintf(stderr, "%s: %s\n", qPrintable(QApplication::applicationName()), trouble.c_str());
}

}  // namespace

void DescribeApplication(const char* program) {
  QApplication::setApplicationName(QLatin1String(program));
  QApplication::setApplicationVersion(QLatin1String(VersionText));
  QApplication::setDesktopFileName(QStringLiteral("quillmark-console"));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quillmark-console.svg")));
  QApplication::setQuitOnLastWindowClosed(false);
  MakeOurWidgetsAccessible();
}

bool FoldersAreSound() {
  const auto trouble = FolderTrouble();
  if (trouble) Tell(*trouble);
  return !trouble;
}

Shell::Shell(const Options& options, Dialogs* boxes)
    : Machine(options),
      Platform(Machine.AsPlatform(boxes != nullptr ? *boxes : Machine.Boxes)),
      Console(Platform),
      helpKey([this](const std::string& page) {
        Machine.Events.Deliver([&] { Console.OpenManual(page); });
      }) {}

Shell::~Shell() { Machine.Shown.CloseAll(); }

int Shell::Run() {
  // A second signal ends a program that is held up.
  bool asked = false;
  const EndSignals endSignals([&] {
    if (asked) return Machine.Events.Quit();
    asked = true;
    Machine.Events.Deliver([this] { Console.Form_Unload(); });
    asked = false;
  });
  Console.Shared().PlanFirst = true;
  Machine.Events.Deliver([this] { Console.Start(); });
  const int code = Machine.Events.Quitting() ? 0 : QApplication::exec();
  if (Machine.Shown.Misfit().empty()) return code;
  Tell(Machine.Shown.Misfit());
  return 2;
}

}  // namespace quillmark
