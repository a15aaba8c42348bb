#pragma once

#include <string>

#include "platform/platform.h"
#include "qt/help/help_key.h"
#include "qt/machine.h"
#include "qt/options.h"
#include "start/console.h"

namespace quillmark {

// Names the program to the system and the desktop. Call it right after the QApplication is made.
void DescribeApplication(const char* program);

// False, with the trouble on stderr, when the user's folders can't be used. Call it before a Shell
// is made, which looks for things below them.
bool FoldersAreSound();

// The console on the real machine. One at a time, made after the QApplication.
class Shell {
 public:
  // With a device named, this run uses that one and connects at once. With `boxes` given, those
  // answer in place of the desktop's.
  explicit Shell(const Options& options, Dialogs* boxes = nullptr);
  // Closes all windows.
  ~Shell();

  // Starts the console and returns when it has ended: 0, or 2 with the reason on stderr when a
  // window's form does not fit its controls.
  int Run();

  quillmark::Machine Machine;
  quillmark::Platform Platform;
  quillmark::Console Console;

 private:
  HelpKey helpKey;
};

}  // namespace quillmark
