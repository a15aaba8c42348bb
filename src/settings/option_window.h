#pragma once

#include <functional>
#include <string>

#include "app/frmOrvalent.h"
#include "controls/form.h"
#include "conversation/conversation.h"
#include "platform/platform.h"

namespace quillmark {

// What the small windows that program a setting have in common: they send without waiting for a
// reply, and send one carriage return when they are unloaded. While somebody else talks to the
// radio, what they send waits for its turn. When the radio is lost, one box tells it, the window
// closes, and nothing more is sent. Everything given to it outlives it.
class OptionWindow : public Form {
 public:
  OptionWindow(std::string name, Platform& platform, frmOrvalent& main, Conversation& radio);

 protected:
  // Sends the text and a carriage return, in its turn, and lets `pause` ms pass. Throws
  // SerialError when the turn is at once.
  void Send(const std::string& command, int pause = 0);
  // A handler of the window with the rule above.
  std::function<void()> Handler(std::function<void()> act);
  void Form_Unload() override;

  Platform& platform;
  frmOrvalent& main;
  Conversation& radio;

 private:
  bool linkLost = false;
  bool begun = false;  // something has been sent
};

}  // namespace quillmark
