#include "qt/machine.h"

#include <QDateTime>

#include "qt/serial/port_trouble.h"

namespace quillmark {

namespace {

// What the command line says about preferences, as the store would have it.
std::vector<RunPreferences::Entry> NamedIn(const Options& options, PortNumbers& numbers) {
  std::vector<RunPreferences::Entry> named;
  if (!options.Port.empty()) {
    const int number = numbers.NumberFor(options.Port);
    named.push_back({"Properties", "CommPort", std::to_string(number)});
    named.push_back({"Preferences", "ConnectOnLaunch", "True"});
  }
  if (options.Dark) named.push_back({"Preferences", "Theme", "Dark"});
  return named;
}

}  // namespace

Machine::Machine(const Options& options, Duration longestSleep)
    : Events(longestSleep),
      Store(IniPreferenceStore::UsualFile()),
      Numbers(Store, {FindPorts, DeviceExists, QDateTime::currentSecsSinceEpoch,
                      [this](int number) { return PortInUse(number); }}),
      First(Events, [this](int number) { return Numbers.DeviceOf(number); }),
      Second(Events, [this](int number) { return Numbers.DeviceOf(number); }),
      Places(WindowPlaces::UsualFile()),
      Shown(Events, &Places),
      Boxes(Events) {
  Named.emplace(Store, NamedIn(options, Numbers));
}

Platform Machine::AsPlatform(Dialogs& dialogs) {
  Screen.TellThrough(dialogs);
  return {
      .Events = Events,
      .Dialogs = dialogs,
      .Windows = Shown,
      .MSComm1 = First,
      .MSComm2 = Second,
      .Ports = Numbers,
      .Preferences = *Named,
      .Files = Files,
      .Desktop = Screen,
      .Random = Chance,
  };
}

bool Machine::PortInUse(int number) const {
  return (First.PortOpen() && First.CommPort() == number) ||
         (Second.PortOpen() && Second.CommPort() == number);
}

}  // namespace quillmark
