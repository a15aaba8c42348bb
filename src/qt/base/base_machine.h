#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "qt/base/program_files.h"
#include "qt/base/qt_event_loop.h"
#include "qt/base/qt_random.h"
#include "qt/serial/port_numbers.h"
#include "qt/serial/qt_serial_port.h"
#include "qt/store/ini_preference_store.h"
#include "qt/store/run_preferences.h"

namespace quillmark {

// What the machines of both shells have: time, ports, preferences, files, chance. Nothing of it
// needs a display. A program makes one after its application object.
struct BaseMachine {
  // Tests bound the sleeps of the event loop.
  explicit BaseMachine(Duration longestSleep = Duration::max(),
                       IniPreferenceStore::Writes writes = IniPreferenceStore::Writes::ToFile);

  // Names preferences for this run; once, before AsPlatform.
  void Name(std::vector<RunPreferences::Entry> preferences);
  // The same for the port on that device: it is the stored one of this run.
  RunPreferences::Entry PortNamed(const std::string& device);

  Platform AsPlatform(Dialogs& dialogs, Windows& windows, Desktop& desktop);

  QtEventLoop Events;
  IniPreferenceStore Store;
  PortNumbers Numbers;
  std::optional<RunPreferences> Named;
  QtSerialPort First;
  QtSerialPort Second;
  QtProgramFiles Files;
  QtRandom Chance;

 private:
  bool PortInUse(int number) const;
};

}  // namespace quillmark
