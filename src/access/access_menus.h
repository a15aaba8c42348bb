#pragma once

#include <memory>
#include <string>

#include "access/frmLogin.h"
#include "access/frmSetPass.h"
#include "access/frmSetup.h"
#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// The menus of radio access and of the bench test mode: they open the windows that do the work.
class AccessMenus {
 public:
  AccessMenus(Platform& platform, Session& session, frmOrvalent& main, Conversation& radio);
  ~AccessMenus();

  // Joins the menus and the toolbar's Login to their handlers.
  void Wire();
  // A sentence on a window of these that is open and has the line; empty when there is none.
  std::string OpenWindow() const;
  bool PasswordWindowOpen() const;

 private:
  void mnuAccessCode_Click();
  void mnuEncryptCode_Click();
  void mnuSetPass_Click();
  void mnuSetupMode_Click();
  // False, with a box, while the port is closed.
  bool PortIsOpen();
  void ShowLogin(frmLogin::Command command);
  // False when the radio refuses changes, which the user is told, or the link is gone.
  bool RadioTakesChanges();
  void EnterSetupMode();
  // Lamp, notice and the window of the bench test mode tell that the transmitter is keyed.
  void ShowTransmitter();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Conversation& radio;
  std::shared_ptr<frmSetPass> setPass;
  std::shared_ptr<frmSetup> setup;
  bool enteringSetup = false;  // its window is about to come
};

}  // namespace quillmark
