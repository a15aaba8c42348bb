#pragma once

#include "platform/platform.h"
#include "qt/base/base_machine.h"
#include "qt/binding/qt_windows.h"
#include "qt/binding/window_places.h"
#include "qt/desktop/qt_desktop.h"
#include "qt/dialogs/qt_dialogs.h"
#include "qt/options.h"

namespace quillmark {

// The real machine under the logic: everything that a Platform refers to. The program makes one
// after its QApplication and before the console.
struct Machine : BaseMachine {
  // With a port named, this run uses that one and connects at once. Tests bound the sleeps of the
  // event loop.
  explicit Machine(const Options& options = {}, Duration longestSleep = Duration::max());

  Platform AsPlatform(Dialogs& dialogs);

  QtDesktop Screen;
  WindowPlaces Places;
  QtWindows Shown;
  QtDialogs Boxes;
};

}  // namespace quillmark
