#include "access/frmSetPass.h"

#include "link/echo.h"
#include "link/serial_failure.h"
#include "prefs/utilities.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

frmSetPass::frmSetPass(Platform& machine, Session& shared, frmOrvalent& window)
    : Form("frmSetPass"),
      Label1(*this, this, "Label1",
             "Enter the password to use for authorized radio configuration. (Enter twice for "
             "verification)."),
      PassRadio{{{*this, this, "PassRadio_0", "Use a password:"},
                 {*this, this, "PassRadio_1", "Do not use a radio password."}}},
      Pass1(*this, this, "Pass1"),
      Pass2(*this, this, "Pass2"),
      OKButton(*this, this, "OKButton", "OK"),
      CancelButton(*this, this, "CancelButton", "Cancel"),
      platform(machine),
      session(shared),
      main(window) {
  ++main.SecretWindows;
  Caption = "Radio Password Setup";
  for (TextBox* box : {&Pass1, &Pass2}) {
    box->MaxLength = 4;
    box->Secret = true;
  }
  PassRadio[0].OnClick = [this] { PassRadio_Click(0); };
  PassRadio[1].OnClick = [this] { PassRadio_Click(1); };
  OKButton.OnClick = [this] {
    if (!platform.MSComm1.PortOpen()) return;
    WithLinkErrors(platform.Dialogs, [this] { OKButton_Click(); });
  };
  CancelButton.OnClick = [this] { Unload(); };
  Form_Load();
}

void frmSetPass::Form_Load() {
  Pass1.Enabled = session.PassEnabled;
  Pass2.Enabled = session.PassEnabled;
  PassRadio[session.PassEnabled ? 0 : 1].SetChecked(true);
  SetEcho(false);
}

void frmSetPass::Form_Unload() {
  --main.SecretWindows;
  for (TextBox* box : {&Pass1, &Pass2}) box->Text = "";
  WaitMilliseconds(platform.Events, 100);
  SetEcho(true);
  WaitMilliseconds(platform.Events, 100);
}

// Without a radio there is no echo to switch.
void frmSetPass::SetEcho(bool on) {
  if (!platform.MSComm1.PortOpen()) return;
  WithLinkErrors(platform.Dialogs, [&] { SwitchEcho(platform.MSComm1, main, on); });
}

void frmSetPass::PassRadio_Click(int index) {
  Pass1.Enabled = index == 0;
  Pass2.Enabled = index == 0;
  if (index == 0) Pass1.SetFocus();
}

void frmSetPass::OKButton_Click() {
  if (PassRadio[0].Checked()) {
    SetPassword();
  } else {
    RemovePassword();
  }
}

void frmSetPass::SetPassword() {
  if (Pass1.Text() != Pass2.Text()) {
    platform.Dialogs.Message({"The two passwords do not match!\rPlease reenter the password.",
                              "Error!", Icon::Critical});
    Pass1.SetFocus();
    return;
  }
  ++main.SecretReplies;
  platform.MSComm1.Output("k7m2 " + Pass1.Text() + "\r");
  main.txtTerm.Text = "*** NEW PASSWORD ACCEPTED ***";
  main.tbr_Login.Enabled = false;
  main.tbr_Logout.Enabled = true;
  StorePassEnabled(true);
  Unload();
}

void frmSetPass::RemovePassword() {
  session.RxBuffer = "";
  platform.MSComm1.Output("k7m2\r");
  WaitUntil(platform.Events, Milliseconds(500),
            [this] { return Holds(session.RxBuffer, ">") && Holds(session.RxBuffer, "k7m2"); });
  if (Holds(session.RxBuffer, "DENIED")) {
    platform.Dialogs.Message(
        {"You must be logged in to disable password protection.", "Error!", Icon::Critical});
    Unload();
    return;
  }
  platform.MSComm1.Output("PASS NONE\r");
  platform.Events.Sleep(Milliseconds(100));
  main.txtTerm.Text = "*** PASSWORD REMOVED ***";
  platform.MSComm1.Output("\r");
  main.tbr_Login.Enabled = true;
  main.tbr_Logout.Enabled = false;
  StorePassEnabled(false);
  Unload();
}

void frmSetPass::StorePassEnabled(bool enabled) {
  session.PassEnabled = enabled;
  platform.Preferences.Write("Preferences", "PassEnabled", BooleanText(enabled));
}

}  // namespace quillmark
