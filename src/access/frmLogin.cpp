#include "access/frmLogin.h"

#include <utility>

#include "link/serial_failure.h"
#include "text/at_end.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int passes = 1000;
constexpr Duration replyLimit = Seconds(3);

}  // namespace

frmLogin::frmLogin(Platform& machine, frmOrvalent& window, Conversation& conversation, Command what)
    : Form("frmLogin"),
      InfoLabel(*this, this, "InfoLabel"),
      Label(*this, this, "Label", "&Password:"),
      txtPassword(*this, this, "txtPassword"),
      cmdOK(*this, this, "cmdOK", "OK"),
      cmdCancel(*this, this, "cmdCancel", "Cancel"),
      NoneButton(*this, this, "NoneButton", "Use None"),
      platform(machine),
      main(window),
      radio(conversation),
      turn(std::in_place, conversation.Turns, LineTurns::For::Secret),
      command(what) {
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

void frmLogin::Form_Load() { radio.SwitchEcho(false); }

void frmLogin::Form_Unload() {
  txtPassword.Text = "";
  if (radio.Open() && main.EchoIsOff) {
    WithLinkErrors(platform.Dialogs, [this] { radio.SwitchEcho(true); });
  }
  turn.reset();
}

bool frmLogin::Received(std::string_view text) const { return Holds(radio.Received(), text); }

void frmLogin::cmdOK_Click() {
  if (sending) return;  // a second click while the first one works
  const auto underWay = Raised(sending);
  SendAndJudge();
}

void frmLogin::SendAndJudge() {
  const bool pass = command == Command::Pass;
  const char* const accepted = pass ? "PASSWORD OK" : "PROGRAMMED OK";
  const char* const refused = pass ? "PASSWORD INVALID" : "INVALID ENTRY";
  if (!radio.SaySecret((pass ? "pass " : "code ") + txtPassword.Text())) return;
  radio.AwaitText(replyLimit, [&] { return Received(accepted) || Received(refused); });
  if (!radio.Open()) return;
  if (!Received(accepted)) {
    if (Loaded()) Refuse(pass ? "Invalid Password, try again!" : "Invalid Encryption Code.");
    return;
  }
  if (pass) {
    main.tbr_Login.Enabled = false;
    main.tbr_Logout.Enabled = true;
    main.ShowRefusesChanges(false);
  }
  Accept(pass ? "*** PASSWORD ACCEPTED ***" : "*** ENCRYPTION CODE ACCEPTED ***");
}

void frmLogin::Accept(const char* notice) {
  if (!Loaded()) return;  // closed meanwhile, and with its echo back
  const int began = radio.Epoch();
  radio.Say("");
  radio.SwitchEcho(true);
  if (radio.Open() && radio.Epoch() == began) main.txtTerm.Text = notice;
  Unload();
}

void frmLogin::Refuse(const char* text) {
  platform.Dialogs.Message({text, "Login"});
  txtPassword.SetSelStart(0);
  txtPassword.SetSelLength(txtPassword.Text().size());
  txtPassword.SetFocus();
}

void frmLogin::NoneButton_Click() {
  if (sending) return;
  const auto underWay = Raised(sending);
  if (!radio.SaySecret("code none")) return;
  for (int pass = 0; pass < passes && Loaded(); ++pass) platform.Events.Pump();
  if (!Loaded()) return;  // cancelled meanwhile
  Accept("*** ENCRYPTION CODE ACCEPTED ***");
}

void frmLogin::cmdCancel_Click() {
  radio.SwitchEcho(true);
  for (int pass = 0; pass < passes && Loaded(); ++pass) platform.Events.Pump();
  Unload();
}

}  // namespace quillmark
