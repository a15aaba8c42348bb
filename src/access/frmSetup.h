#pragma once

#include <functional>

#include "app/frmOrvalent.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Drives the radio's bench test mode: a fixed receive and a fixed transmit frequency in place of
// hopping, and a transmitter that is keyed by hand. Not modal, so that the terminal stays usable.
class frmSetup : public Form {
 public:
  frmSetup(Platform& platform, Session& session, frmOrvalent& main, Conversation& radio);

  Label lblNote;
  ValueField RxFrequency, TxFrequency;
  Label RxLabel, TxLabel;
  Button Key, DKey, ExitButton;

 protected:
  // The close box leaves the radio in setup mode. Its next prompt tells the mode.
  void Form_Unload() override { session.InSetupMode = false; }

 private:
  // One of the two test frequencies: its controls, words and texts.
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
  // Runs `act` when the line is free, with a box when the link is lost; not when the window has
  // closed meanwhile.
  void Talk(std::function<void()> act);
  void ExitButton_Click();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Conversation& radio;
};

}  // namespace quillmark
