#pragma once

#include <functional>
#include <string>

#include "app/frmOrvalent.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Drives the radio's bench test mode: a fixed receive and a fixed transmit frequency in place of
// hopping, and a transmitter that is keyed by hand. Not modal, so that the terminal stays usable.
// Everything given to it outlives it.
class frmSetup : public Form {
 public:
  frmSetup(Platform& platform, Session& session, frmOrvalent& main, Conversation& radio);

  Label lblNote;
  ValueField RxFrequency, TxFrequency;
  Label RxLabel, TxLabel;
  Button Key, DKey, ExitButton;

 protected:
  // The close box leaves the radio in its mode: its next prompt tells.
  void Form_Unload() override { session.InSetupMode = false; }

 private:
  struct Direction {
    ValueField frmSetup::*Field;
    Label frmSetup::*Caption;
    const char* Word;          // reads the frequency
    const char* WholeCommand;  // in an answer that is sent as it is
    const char* Prompt;
    const char* Title;
    const char* InfoTitle;
    const char* InfoWord;
  };
  static const Direction receive;
  static const Direction transmit;

  void Wire(const Direction& direction);
  void ReadFrequency(const Direction& direction);
  void Frequency_Click(const Direction& direction);
  void ShowInfo(const Direction& direction);
  void Press(Button& pressed, Button& other, const char* command);
  // Runs `act` in its turn, under the rule for lost links; not when the window is gone by then.
  void Talk(std::function<void()> act);
  void ExitButton_Click();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Conversation& radio;
};

}  // namespace quillmark
