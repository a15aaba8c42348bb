#include "access/frmLogin.h"

#include <functional>

#include "link/echo.h"
#include "link/serial_failure.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int passes = 1000;
constexpr Duration replyLimit = Seconds(3);

}  // namespace

frmLogin::frmLogin(Platform& machine, Session& shared, frmOrvalent& window, Command what)
    : Form("frmLogin"),
      InfoLabel(*this, this, "InfoLabel"),
      Label(*this, this, "Label", "&Password:"),
      txtPassword(*this, this, "txtPassword"),
      cmdOK(*this, this, "cmdOK", "OK"),
      cmdCancel(*this, this, "cmdCancel", "Cancel"),
      NoneButton(*this, this, "NoneButton", "Use None"),
      platform(machine),
      session(shared),
      main(window),
      command(what) {
  ++main.SecretWindows;
  const bool code = command == Command::Code;
  Caption = code ? "Enter Encryption Code:" : "Enter Password:";
  Label.Text = code ? "&Code:" : "&Password:";
  InfoLabel.Text = code ? "Please enter an encryption code (1-255), or click 'None' not to use an "
                          "encryption code:"
                        : "Please enter a radio password:";
  txtPassword.Secret = true;
  txtPassword.MaxLength = code ? 3 : 4;
  NoneButton.Visible = code;
  const auto handler = [this](void (frmLogin::*act)()) {
    return [this, act] {
      if (!platform.MSComm1.PortOpen()) return;
      WithLinkErrors(platform.Dialogs, [this, act] { (this->*act)(); });
    };
  };
  cmdOK.OnClick = handler(&frmLogin::cmdOK_Click);
  cmdCancel.OnClick = handler(&frmLogin::cmdCancel_Click);
  NoneButton.OnClick = handler(&frmLogin::NoneButton_Click);
  handler (&frmLogin::Form_Load)();
}

void frmLogin::Form_Load() {
  session.RxBuffer = " ";
  SwitchEcho(platform.MSComm1, main, false);
}

void frmLogin::Form_Unload() {
  --main.SecretWindows;
  txtPassword.Text = "";
}

void frmLogin::SendSecret(const std::string& line) {
  session.RxBuffer = " ";
  ++main.SecretReplies;
  platform.MSComm1.Output(line + "\r");
}

bool frmLogin::Received(std::string_view text) const { return Holds(session.RxBuffer, text); }

void frmLogin::cmdOK_Click() {
  const bool pass = command == Command::Pass;
  const char* const accepted = pass ? "PASSWORD OK" : "PROGRAMMED OK";
  const char* const refused = pass ? "PASSWORD INVALID" : "INVALID ENTRY";
  if (sending) return;  // a second click on the way
  sending = true;
  SendSecret((pass ? "pass " : "code ") + txtPassword.Text());
  WaitUntil(platform.Events, replyLimit, [&] {
    return Received(accepted) || Received(refused) || !platform.MSComm1.PortOpen();
  });
  sending = false;
  if (!platform.MSComm1.PortOpen()) return;
  if (!Received(accepted)) {
    if (Loaded()) Refuse(pass ? "Invalid Password, try again!" : "Invalid Encryption Code.");
    return;
  }
  if (pass) {
    main.tbr_Login.Enabled = false;
    main.tbr_Logout.Enabled = true;
  }
  Accept(pass ? "*** PASSWORD ACCEPTED ***" : "*** ENCRYPTION CODE ACCEPTED ***");
}

void frmLogin::Accept(const char* notice) {
  main.txtTerm.Text = notice;
  platform.MSComm1.Output("\r");
  SwitchEcho(platform.MSComm1, main, true);
  Unload();
}

void frmLogin::Refuse(const char* text) {
  platform.Dialogs.Message({text, "Login"});
  txtPassword.SetSelStart(0);
  txtPassword.SetSelLength(txtPassword.Text().size());
  txtPassword.SetFocus();
}

void frmLogin::NoneButton_Click() {
  SendSecret("code none");
  for (int pass = 0; pass < passes && Loaded(); ++pass) platform.Events.Pump();
  if (!Loaded()) return;  // cancelled meanwhile
  Accept("*** ENCRYPTION CODE ACCEPTED ***");
}

void frmLogin::cmdCancel_Click() {
  session.RxBuffer = " ";
  SwitchEcho(platform.MSComm1, main, true);
  for (int pass = 0; pass < passes && Loaded(); ++pass) platform.Events.Pump();
  Unload();
}

}  // namespace quillmark
