#include <QApplication>
#include <cstdio>
#include <memory>

#include "qt/dialogs/store_trouble_boxes.h"
#include "qt/options.h"
#include "qt/shell.h"

namespace quillmark {

namespace {

int Run(const Options& options) {
  if (!FoldersAreSound()) return 2;
  Shell shell(options);
  shell.Console.Shared().History = true;
  Machine& machine = shell.Machine;
  const StoreTroubleBoxes storeTroubles(machine.Store, machine.Shown, machine.Boxes,
                                        machine.Events);
  return shell.Run();
}

}  // namespace

}  // namespace quillmark

int main(int argc, char* argv[]) {
  std::unique_ptr<QCoreApplication> application;
  QStringList arguments;
  if (const auto text = quillmark::TextAskedFor(argc, argv)) {
    application = std::make_unique<QCoreApplication>(argc, argv);
    arguments = {QCoreApplication::arguments().front(), *text};
  } else {
    application = std::make_unique<QApplication>(argc, argv);
    quillmark::DescribeApplication("quillmark-console");
    arguments = QCoreApplication::arguments();
  }
  const auto read = quillmark::ReadOptions(arguments);
  if (const auto* printed = std::get_if<quillmark::Printed>(&read)) {
    std::fputs(printed->Text.c_str(), printed->ExitCode == 0 ? stdout : stderr);
    return printed->ExitCode;
  }
  return quillmark::Run(std::get<quillmark::Options>(read));
}
