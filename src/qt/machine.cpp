#include "qt/machine.h"

#include <QDateTime>

#include "qt/serial/port_trouble.h"

namespace quillmark {

Machine::Machine(const std::string& device, Duration longestSleep)
    : Events(longestSleep),
      Store(IniPreferenceStore::UsualFile()),
      Numbers(Store, {FindPorts, DeviceExists, QDateTime::currentSecsSinceEpoch,
                      [this](int number) { return PortInUse(number); }}),
      First(Events, [this](int number) { return Numbers.DeviceOf(number); }),
      Second(Events, [this](int number) { return Numbers.DeviceOf(number); }),
      Places(WindowPlaces::UsualFile()),
      Shown(Events, &Places),
      Boxes(Events) {
  if (!device.empty()) Named.emplace(Store, Numbers.NumberFor(device));
}

Platform Machine::AsPlatform(Dialogs& dialogs) {
  Screen.TellThrough(dialogs);
  PreferenceStore& kept = Named ? static_cast<PreferenceStore&>(*Named) : Store;
  return {
      .Events = Events,
      .Dialogs = dialogs,
      .Windows = Shown,
      .MSComm1 = First,
      .MSComm2 = Second,
      .Ports = Numbers,
      .Preferences = kept,
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
