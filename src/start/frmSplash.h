#pragma once

#include <functional>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/timer.h"
#include "platform/desktop.h"
#include "platform/event_loop.h"
#include "session/session.h"

namespace quillmark {

// The splash window: up for about 0.6 s at start, with a progress bar, and for 2.4 s as About box.
// Any key or click closes it at once, but for a click on the address, which opens that.
class frmSplash : public Form {
 public:
  // `onUnload` is called when the window closes: it shows or enables the main window.
  frmSplash(EventLoop& events, Desktop& desktop, const Session& session,
            std::function<void()> onUnload);

  // Closes it without a call of `onUnload`: the program ends.
  void Dismiss();

  ProgressBar pBar1;
  Label lblProductName, lblCompanyProduct, lblKelvor, lblCorporation, lblCompany, lblURL,
      lblPlatform;
  Label Date;
  Timer Timer1;

 protected:
  void Form_Unload() override;
  void Form_KeyPress() override { Unload(); }
  void Form_Click() override { Unload(); }

 private:
  void Timer1_Timer();

  std::function<void()> onUnload;
  int tickLimit;
  int tickCount = 1;
};

}  // namespace quillmark
