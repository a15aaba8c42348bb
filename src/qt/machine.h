#pragma once

#include <optional>
#include <string>

#include "platform/platform.h"
#include "qt/ini_preference_store.h"
#include "qt/named_port_preferences.h"
#include "qt/port_numbers.h"
#include "qt/qt_desktop.h"
#include "qt/qt_dialogs.h"
#include "qt/qt_event_loop.h"
#include "qt/qt_serial_port.h"
#include "qt/qt_windows.h"

namespace quillmark {

// The real machine under the logic: everything that a Platform refers to. The program makes one
// after its QApplication and before the console.
struct Machine {
  // With a device named, this run uses that one and connects at once.
  explicit Machine(const std::string& device = {});

  Platform AsPlatform(Dialogs& dialogs);

  QtEventLoop Events;
  IniPreferenceStore Store;
  PortNumbers Numbers;
  std::optional<NamedPortPreferences> Named;
  QtSerialPort First;
  QtSerialPort Second;
  QtProgramFiles Files;
  QtDesktop Screen;
  QtRandom Chance;
  QtWindows Shown;
  QtDialogs Boxes;

 private:
  bool PortInUse(int number) const;
};

}  // namespace quillmark
