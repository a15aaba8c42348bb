// quillmark_bench_start: the console's start, measured from inside. It starts the console as a user
// does, prints when the main window was painted and the memory held then, and ends. With
// --bare-window it does the same with one empty window, for comparison.

#include <QApplication>
#include <string_view>
#include <variant>

#include "bare_window.h"
#include "qt/dialogs/store_trouble_boxes.h"
#include "qt/options.h"
#include "qt/shell.h"
#include "start_report.h"

namespace quillmark {

namespace {

int StartConsole(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  DescribeApplication("quillmark-console");
  const auto read = ReadOptions(QApplication::arguments());
  if (!std::holds_alternative<Options>(read) || !FoldersAreSound()) return 2;
  Shell shell(std::get<Options>(read));
  Machine& machine = shell.Machine;
  const StoreTroubleBoxes storeTroubles(machine.Store, machine.Shown, machine.Boxes,
                                        machine.Events);
  const bench::StartReport report(machine.Shown, machine.Events);
  return shell.Run();
}

}  // namespace

}  // namespace quillmark

int main(int argc, char* argv[]) {
  if (argc == 2 && std::string_view(argv[1]) == "--bare-window") {
    return quillmark::bench::ShowBareWindow(argc, argv);
  }
  return quillmark::StartConsole(argc, argv);
}
