#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/headless_desktop.h"
#include "cli/headless_dialogs.h"
#include "cli/headless_windows.h"
#include "platform/platform.h"
#include "qt/base/base_machine.h"
#include "qt/base/end_signals.h"

namespace quillmark {

// What the command line says for every command.
struct GlobalOptions {
  std::string Port;  // a device, or a number from 1 to 16; empty: the port that is stored
  bool Json = false;
  bool Quiet = false;  // no progress
};

// The real machine under the logic, without a display. The user's preferences are read and never
// written. Signals that end the program end each wait with a Failure. One at a time.
class CliMachine {
 public:
  // Throws Failure when the user's folders can't be used.
  explicit CliMachine(const GlobalOptions& options);

  // Lets events in until `done` holds or `limit` has passed; tells whether it holds. For the
  // outermost level alone. Throws Failure when a signal has come.
  bool WaitFor(const std::function<bool()>& done, Duration limit = Duration::max());
  // Throws Failure when a signal has come.
  void CheckSignals();
  bool Interrupted() const { return interrupted; }
  // The device that the command line means; empty for a number without one.
  std::string DeviceOf(const std::string& port);
  // The signal that has come is the usual end of the command.
  void TakeSignal() { interrupted = false; }

  // What a signal does, beside ending the waits. Set by whoever has a radio.
  std::function<void()> OnSignal;
  // How an interrupted command ends.
  std::function<void()> ThrowInterrupted;

 private:
  std::vector<RunPreferences::Entry> NamedIn(const GlobalOptions& options);
  void Signalled();

  const bool foldersAreSound;
  bool interrupted = false;

 public:
  BaseMachine Base;
  HeadlessDialogs Boxes;
  HeadlessWindows Shown;
  HeadlessDesktop Screen;
  quillmark::Platform Platform;

 private:
  EndSignals endSignals;
};

}  // namespace quillmark
