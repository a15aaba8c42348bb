#pragma once

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// The rows whose settings have windows of their own: a click opens them. Everything given to it
// outlives it.
class OptionRows {
 public:
  OptionRows(Platform& platform, Session& session, frmOrvalent& main, Conversation& radio);

  void Wire();

 private:
  void XMAP_Click();
  // The hex digits of the radio's map; empty when its reply can't be cut.
  std::string ReadMap();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Conversation& radio;
};

}  // namespace quillmark
