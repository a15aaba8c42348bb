#pragma once

#include <functional>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

class frmOrvalent;

// The set-up window: which serial port the radio is on. Shown modally by the main window's
// "Setup...". `session.PortChanged` tells its caller whether a port was stored.
class frmProperties : public Form {
 public:
  // `closeSession` shows that the session on the old port is over.
  frmProperties(Platform& platform, Session& session, frmOrvalent& main,
                std::function<void()> closeSession);

  Label SelectPort;
  ListBox cboPort;
  Label lblDevice;  // the device of the chosen port
  Button cmdOK, cmdCancel;

 protected:
  void Form_Close() override { cmdCancel_Click(); }

 private:
  void LoadPropertySettings();
  void ShowDevice();
  void cmdOK_Click();
  void cmdCancel_Click();
  // False when the user keeps the old port or the new one fails; the box has been shown.
  bool ChangePort(int number);
  bool ConfirmChange();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  std::function<void()> closeSession;
};

}  // namespace quillmark
