#pragma once

#include <deque>
#include <string>

#include "controls/clickable.h"
#include "session/session.h"
#include "settings/option_window.h"

namespace quillmark {

// The extension map: which of the extension addresses 0 to 31 the radio may talk to. Modal, opened
// by the XMAP row with the hex digits that the radio gave; when it gave none, nothing can be
// programmed before a box has been set. Sends nothing when it is unloaded.
class frmXMAP : public OptionWindow {
 public:
  static constexpr std::size_t AddressCount = 32;

  frmXMAP(Platform& platform, Session& session, frmOrvalent& main, Conversation& radio,
          std::string mapText);

  std::deque<CheckBox> Check1;  // by extension address
  Button CurrentButton, CheckAllButton, UnCheckAllButton, ProgramButton, CloseButton;

 protected:
  void Form_Unload() override {}

 private:
  void CurrentButton_Click();
  void CheckEach(bool checked);
  void ProgramButton_Click();

  Session& session;
  std::string mapText;
};

}  // namespace quillmark
