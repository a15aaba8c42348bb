#pragma once

#include <string>
#include <string_view>

#include "app/frmOrvalent.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "link/session.h"
#include "platform/platform.h"

namespace quillmark {

// Asks for the radio's password, or for its encryption code, and sends it with the echo switched
// off. Modal. While it is loaded no keep-alive and no read goes out. While the port is closed its
// handlers do nothing. Everything given to it outlives it.
class frmLogin : public Form {
 public:
  enum class Command { Pass, Code };

  frmLogin(Platform& platform, Session& session, frmOrvalent& main, Command command);

  quillmark::Label InfoLabel, Label;
  TextBox txtPassword;
  Button cmdOK, cmdCancel, NoneButton;

 protected:
  // Nothing is sent: the echo stays off until the next "eeco".
  void Form_Unload() override;

 private:
  void Form_Load();
  void cmdOK_Click();
  void cmdCancel_Click();
  void NoneButton_Click();
  void Accept(const char* notice);
  void Refuse(const char* text);
  // Sends a line with a secret in it; what the radio says up to its prompt is kept from the eye.
  void SendSecret(const std::string& line);
  bool Received(std::string_view text) const;

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Command command;
  bool sending = false;
};

}  // namespace quillmark
