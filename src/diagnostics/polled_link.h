#pragma once

#include <functional>
#include <string>

#include "app/frmOrvalent.h"
#include "platform/platform.h"

namespace quillmark {

// The line to the radio as a window uses it that goes on asking by itself: when it is lost the
// window stops, and the user is told once. Everything given to it outlives it.
class PolledLink {
 public:
  PolledLink(Platform& platform, const frmOrvalent& main);

  // Sends the command and a carriage return. When that fails it calls OnLost first, then shows the
  // box, unless the loss has been told by other means; who asked for it himself
  // is always told.
  void Send(const std::string& command);
  // The next sending is the user's own wish: he is told in any case when there is no link for it.
  void AskedByUser() { asked = true; }
  bool Open() const { return platform.MSComm1.PortOpen(); }

  std::function<void()> OnLost;

 private:
  Platform& platform;
  const frmOrvalent& main;
  bool wasUp;
  bool asked = false;
};

}  // namespace quillmark
