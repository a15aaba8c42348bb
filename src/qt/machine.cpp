#include "qt/machine.h"

#include "qt/dialogs/defect_box.h"

namespace quillmark {

Machine::Machine(const Options& options, Duration longestSleep)
    : BaseMachine(longestSleep),
      Places(WindowPlaces::UsualFile()),
      Shown(Events, &Places),
      Boxes(Events) {
  Events.OnDefect = ShowDefectBox;
  // What the command line says about preferences, as the store would have it.
  std::vector<RunPreferences::Entry> named;
  if (!options.Port.empty()) {
    named.push_back(PortNamed(options.Port));
    named.push_back({"Preferences", "ConnectOnLaunch", "True"});
  }
  if (options.Dark) named.push_back({"Preferences", "Theme", "Dark"});
  Name(std::move(named));
}

Platform Machine::AsPlatform(Dialogs& dialogs) {
  Screen.TellThrough(dialogs);
  return BaseMachine::AsPlatform(dialogs, Shown, Screen);
}

}  // namespace quillmark
