#pragma once

#include <string>

#include "app/frmOrvalent.h"
#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/timer.h"
#include "conversation/conversation.h"
#include "diagnostics/polled_link.h"
#include "platform/platform.h"

namespace quillmark {

// The signal level that the radio receives, as it reports it by itself while this window is up: as
// text and as a bar from -120 to -50 dBm. Modal, opened by ButtonRSSI. However it is closed, a
// carriage return ends the reports.
class frmRSSI : public Form {
 public:
  frmRSSI(Platform& platform, frmOrvalent& main, Conversation& radio);

  ValueField Text1;
  ProgressBar ProgressBar1;                                              // dBm + 170
  Label Label3, Label8, Label7, Label6, Label1, Label5, Label4, Label2;  // from the low end
  Button Command1;
  Timer Timer1;

 protected:
  void Form_Unload() override;

 private:
  void Form_Load();
  void Timer1_Timer();
  void ShowLevel(std::string text);

  Conversation& radio;
  PolledLink link;
};

}  // namespace quillmark
