#pragma once

namespace quillmark::bench {

// What the console's start is compared with: an application with one empty window, which prints
// when it was painted, as the console started here does, and ends. Gives the
// program's exit code.
int ShowBareWindow(int argc, char* argv[]);

}  // namespace quillmark::bench
