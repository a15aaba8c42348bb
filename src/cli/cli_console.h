#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/radio_texts.h"
#include "cli/cli_machine.h"
#include "cli/exit_codes.h"
#include "cli/progress.h"
#include "start/console.h"

namespace quillmark {

// The console as commands use it: the same application as behind the windows, whose controls are
// clicked by name of their member. Each call returns when the radio is done, and throws Failure
// when that did not work. Ends the link with itself; the radio stays logged in.
class CliConsole {
 public:
  CliConsole(CliMachine& machine, bool quiet);
  ~CliConsole();
  CliConsole(const CliConsole&) = delete;
  CliConsole& operator=(const CliConsole&) = delete;

  frmOrvalent& Main() { return console.Main(); }
  Console& Logic() { return console; }

  // Runs `act` as the handler of a user's act.
  void Act(const std::function<void()>& act);
  // Clicks it; fails when it can't be clicked now.
  void Click(Clickable& control);

  // Opens the port and wakes the radio.
  void Connect();
  // Reads all settings of the connected radio into the rows.
  void Read();
  void ConnectAndRead();
  // What the last read has brought. It leaves some settings of a file out, such as the extension
  // map: those among `wanted` are asked for.
  RadioTexts Texts(const std::vector<SettingId>& wanted);
  // What the connected radio answers now; nothing when it does not, or refuses.
  std::optional<std::string> Ask(const Setting& setting);
  // Fails when the radio refuses changes. Known behind a read.
  void CheckLoggedIn();
  // Fails when a box came up that the command did not expect.
  void CheckBoxes();

  // From here on the radio is overwritten: whatever ends the command early leaves it incomplete.
  void BeginOverwriting() { overwriting = true; }
  void EndOverwriting() { overwriting = false; }
  bool Overwriting() const { return overwriting; }
  // That a run did not come to its end, with the copy of what the radio held.
  Failure CutShort(const std::string& cause) const;

  // Ends the link in good order. With `logOut` the radio is logged out first.
  void End(bool logOut = false);

 private:
  std::string Reasons() const;
  void CheckLink();

  CliMachine& machine;
  Console console;
  Progress progress;
  int reads = 0;
  bool overwriting = false;
  bool ended = false;
};

}  // namespace quillmark
