#include "cli/progress.h"

#include <unistd.h>

#include <cstdio>

#include "cli/utf8.h"

namespace quillmark {

Progress::Progress(frmOrvalent& window, bool quiet)
    : main(window), shown(!quiet && isatty(STDERR_FILENO) != 0) {
  if (!shown) return;
  main.barRun.SetView(this);
  main.pnl_Status.SetView(this);
}

Progress::~Progress() {
  main.barRun.SetView(nullptr);
  main.pnl_Status.SetView(nullptr);
  Clear();
}

void Progress::Clear() {
  if (!line.empty()) std::fputs("\r\x1B[K", stderr);
  line.clear();
}

void Progress::Changed(Control&) {
  const auto& bar = main.barRun;
  const std::string doing = bar.Doing().empty() ? main.pnl_Status.Text() : bar.Doing();
  std::string next = OnOneRow(doing);
  if (bar.Visible()) {
    next += " " + std::to_string(bar.Value()) + " of " + std::to_string(bar.Max());
  }
  if (next == line) return;
  Clear();
  line = next;
  // Not so long that a terminal breaks it.
  constexpr std::size_t longest = 70;
  std::fprintf(stderr, "\r%s", ToUtf8(line.substr(0, longest)).c_str());
}

}  // namespace quillmark
