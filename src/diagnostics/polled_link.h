#pragma once

#include <functional>
#include <string>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "platform/platform.h"

namespace quillmark {

// The line to the radio as a window uses it that goes on asking by itself: when it is lost the
// window stops, and the user is told once.
class PolledLink {
 public:
  PolledLink(Platform& platform, const frmOrvalent& main, Conversation& radio);

  // Sends the command and a carriage return, which `prompts` of them answer. When that fails it
  // calls OnLost first, then shows the box, unless the loss has been told by other means. Users who
  // asked for it themselves are always told.
  void Send(const std::string& command, int prompts = 1);
  // The next sending is the user's own wish: they are told in any case when there is no link.
  void AskedByUser() { asked = true; }
  bool Open() const { return platform.MSComm1.PortOpen(); }

  std::function<void()> OnLost;

 private:
  Platform& platform;
  const frmOrvalent& main;
  Conversation& radio;
  bool wasUp;
  bool asked = false;
};

}  // namespace quillmark
