#pragma once

#include <array>

#include "app/frmOrvalent.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/option_button.h"
#include "controls/text_box.h"
#include "link/session.h"
#include "platform/platform.h"

namespace quillmark {

// Sets or removes the radio's customer password. Not modal. Switches the echo off for its life;
// while it is loaded no keep-alive and no read goes out, and the terminal takes no keys. Everything
// given to it outlives it.
class frmSetPass : public Form {
 public:
  frmSetPass(Platform& platform, Session& session, frmOrvalent& main);

  Label Label1;
  std::array<OptionButton, 2> PassRadio;
  TextBox Pass1, Pass2;
  Button OKButton, CancelButton;

 protected:
  void Form_Unload() override;

 private:
  void Form_Load();
  void PassRadio_Click(int index);
  void OKButton_Click();
  void SetEcho(bool on);
  void SetPassword();
  void RemovePassword();
  void StorePassEnabled(bool enabled);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
};

}  // namespace quillmark
