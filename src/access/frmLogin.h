#pragma once

#include <optional>
#include <string_view>

#include "app/frmOrvalent.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "conversation/conversation.h"
#include "platform/platform.h"

namespace quillmark {

// Asks for the radio's password, or for its encryption code, and sends it with the echo switched
// off. Modal. While it is loaded it has the line to itself. While the port is closed its
// handlers do nothing.
class frmLogin : public Form {
 public:
  // Which secret is asked for: the password or the encryption code.
  enum class Command { Pass, Code };

  frmLogin(Platform& platform, frmOrvalent& main, Conversation& radio, Command command);

  quillmark::Label InfoLabel, Label;
  TextBox txtPassword;
  Button cmdOK, cmdCancel, NoneButton;

 protected:
  // However the window is left, the radio gets its echo back.
  void Form_Unload() override;

 private:
  void Form_Load();
  void cmdOK_Click();
  void cmdCancel_Click();
  void NoneButton_Click();
  void Accept(const char* notice);
  void Refuse(const char* text);
  void SendAndJudge();
  bool Received(std::string_view text) const;

  Platform& platform;
  frmOrvalent& main;
  Conversation& radio;
  std::optional<LineTurns::Turn> turn;
  Command command;
  bool sending = false;
};

}  // namespace quillmark
