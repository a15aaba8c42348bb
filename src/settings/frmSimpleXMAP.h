#pragma once

#include <deque>
#include <string>

#include "controls/clickable.h"
#include "settings/option_window.h"

namespace quillmark {

// The guided set-up of a sub-remote in two stages: first the extension map, then which of its
// addresses is tried first. Modal; its caller has set DirectPortMode, so it takes the radio's
// replies itself and throws them away, and the line is its caller's. Sends nothing when it is
// unloaded.
class frmSimpleXMAP : public OptionWindow {
 public:
  static constexpr std::size_t AddressCount = 32;

  frmSimpleXMAP(Platform& platform, frmOrvalent& main, Conversation& radio);

  std::deque<CheckBox> chkXADDR;  // by extension address
  Button cmdSet, cmdCancel, cmdHelp;
  Label lblMain, lblMaster, lblXMap;

 protected:
  void Form_Unload() override {}

 private:
  enum class Stage { Map, Primary };

  void chkXADDR_Click(std::size_t index);
  void cmdSet_Click();
  void cmdHelp_Click();
  void SendMap();
  void SendPrimary();
  void ShowPrimaryStage();

  Stage stage = Stage::Map;
  std::string map;  // binary digits, address 31 first
  std::size_t lastClicked = 0;
  bool setting = false;  // "Set" is at work
  bool busy = false;     // the boxes are being set from here
};

}  // namespace quillmark
