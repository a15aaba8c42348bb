#pragma once

#include <array>
#include <optional>

#include "app/frmOrvalent.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/option_button.h"
#include "controls/text_box.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Sets or removes the radio's customer password. Not modal. Switches the echo off for its life;
// while it is loaded it has the line to itself, and the terminal takes no keys.
class frmSetPass : public Form {
 public:
  frmSetPass(Platform& platform, Session& session, frmOrvalent& main, Conversation& radio);

  Label Label1;
  std::array<OptionButton, 2> PassRadio;
  TextBox Pass1, Pass2;
  Button OKButton, CancelButton;

 protected:
  void Form_Close() override;
  void Form_Unload() override;

 private:
  void Form_Load();
  void PassRadio_Click(int index);
  void OKButton_Click();
  void SetEcho(bool on);
  void SetPassword();
  // Tells what is wrong with the two entries, if anything is.
  bool EntriesAreGood();
  // Shows and stores whether the radio has a password now.
  void ShowState(bool protectedNow);
  void End(const char* notice);
  bool ConfirmRemoval();
  void RemovePassword();
  void StorePassEnabled(bool enabled);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Conversation& radio;
  std::optional<LineTurns::Turn> turn;
  bool working = false;      // OK is at work
  bool closeWanted = false;  // the user wants to leave meanwhile
};

}  // namespace quillmark
