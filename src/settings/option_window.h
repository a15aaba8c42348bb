#pragma once

#include <functional>
#include <string>

#include "app/frmOrvalent.h"
#include "controls/form.h"
#include "platform/platform.h"

namespace quillmark {

// What the small windows that program a setting have in common: they write to the main window's
// serial port, without waiting for a reply, and send one carriage return when they are unloaded.
// When the radio is lost, one box tells it, the window closes, and nothing more is sent. Everything
// given to it outlives it.
class OptionWindow : public Form {
 public:
  OptionWindow(std::string name, Platform& platform, frmOrvalent& main);

 protected:
  // Sends the text and a carriage return; throws SerialError.
  void Send(const std::string& command);
  // A handler of the window with the rule above.
  std::function<void()> Handler(std::function<void()> act);
  void Form_Unload() override;

  Platform& platform;
  frmOrvalent& main;

 private:
  bool linkLost = false;
};

}  // namespace quillmark
