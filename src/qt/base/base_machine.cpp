#include "qt/base/base_machine.h"

#include <QDateTime>
#include <utility>

#include "qt/serial/port_trouble.h"

namespace quillmark {

BaseMachine::BaseMachine(Duration longestSleep, IniPreferenceStore::Writes writes)
    : Events(longestSleep),
      Store(IniPreferenceStore::UsualFile(), writes),
      Numbers(Store, {FindPorts, DeviceExists, QDateTime::currentSecsSinceEpoch,
                      [this](int number) { return PortInUse(number); }}),
      First(Events, [this](int number) { return Numbers.DeviceOf(number); }),
      Second(Events, [this](int number) { return Numbers.DeviceOf(number); }) {}

void BaseMachine::Name(std::vector<RunPreferences::Entry> preferences) {
  Named.emplace(Store, std::move(preferences));
}

RunPreferences::Entry BaseMachine::PortNamed(const std::string& device) {
  return {"Properties", "CommPort", std::to_string(Numbers.NumberFor(device))};
}

Platform BaseMachine::AsPlatform(Dialogs& dialogs, Windows& windows, Desktop& desktop) {
  return {
      .Events = Events,
      .Dialogs = dialogs,
      .Windows = windows,
      .MSComm1 = First,
      .MSComm2 = Second,
      .Ports = Numbers,
      .Preferences = *Named,
      .Files = Files,
      .Desktop = desktop,
      .Random = Chance,
  };
}

bool BaseMachine::PortInUse(int number) const {
  return (First.PortOpen() && First.CommPort() == number) ||
         (Second.PortOpen() && Second.CommPort() == number);
}

}  // namespace quillmark
