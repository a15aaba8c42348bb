#pragma once

#include <memory>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "platform/platform.h"

namespace quillmark {

// The main window's buttons that open the windows of the link's diagnostics. While one of these is
// loaded it has the line to itself: no keep-alive and no read.
class DiagnosticButtons {
 public:
  DiagnosticButtons(Platform& platform, frmOrvalent& main, Conversation& radio);

  // Joins the buttons to their handlers.
  void Wire();
  // Closes the window that is up, so that the radio is left as it was found.
  void CloseWindow();

 private:
  void ButtonRSSI_Click();
  void ButtonZoneData_Click();
  template <class Window>
  void Show();

  Platform& platform;
  frmOrvalent& main;
  Conversation& radio;
  std::weak_ptr<Form> shown;
};

}  // namespace quillmark
