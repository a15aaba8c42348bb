#pragma once

#include <optional>
#include <string>

#include "platform/platform.h"
#include "qt/binding/qt_windows.h"
#include "qt/binding/window_places.h"
#include "qt/desktop/qt_desktop.h"
#include "qt/desktop/qt_event_loop.h"
#include "qt/dialogs/qt_dialogs.h"
#include "qt/options.h"
#include "qt/serial/port_numbers.h"
#include "qt/serial/qt_serial_port.h"
#include "qt/store/ini_preference_store.h"
#include "qt/store/run_preferences.h"

namespace quillmark {

// The real machine under the logic: everything that a Platform refers to. The program makes one
// after its QApplication and before the console.
struct Machine {
  // With a port named, this run uses that one and connects at once. Tests bound the sleeps of the
  // event loop.
  explicit Machine(const Options& options = {}, Duration longestSleep = Duration::max());

  Platform AsPlatform(Dialogs& dialogs);

  QtEventLoop Events;
  IniPreferenceStore Store;
  PortNumbers Numbers;
  std::optional<RunPreferences> Named;
  QtSerialPort First;
  QtSerialPort Second;
  QtProgramFiles Files;
  QtDesktop Screen;
  QtRandom Chance;
  WindowPlaces Places;
  QtWindows Shown;
  QtDialogs Boxes;

 private:
  bool PortInUse(int number) const;
};

}  // namespace quillmark
