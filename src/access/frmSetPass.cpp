#include "access/frmSetPass.h"

#include <utility>

#include "link/serial_failure.h"
#include "platform/utilities.h"
#include "text/at_end.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {
constexpr Duration replyTime = Milliseconds(500);
}

frmSetPass::frmSetPass(Platform& machine, Session& shared, frmOrvalent& window,
                       Conversation& conversation)
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
      main(window),
      radio(conversation),
      turn(std::in_place, conversation.Turns, LineTurns::For::Secret) {
  Caption = "Radio Password Setup";
  for (TextBox* box : {&Pass1, &Pass2}) {
    box->MaxLength = 4;
    box->Secret = true;
  }
  PassRadio[0].OnClick = [this] { PassRadio_Click(0); };
  PassRadio[1].OnClick = [this] { PassRadio_Click(1); };
  OKButton.OnClick = [this] {
    if (!radio.Open() || working) return;
    {
      const auto underWay = Raised(working);
      WithLinkErrors(platform.Dialogs, [this] { OKButton_Click(); });
    }
    if (closeWanted) Unload();
  };
  CancelButton.OnClick = [this] { Form_Close(); };
  Form_Load();
}

void frmSetPass::Form_Load() {
  Pass1.Enabled = session.PassEnabled;
  Pass2.Enabled = session.PassEnabled;
  PassRadio[session.PassEnabled ? 0 : 1].SetChecked(true);
  SetEcho(false);
}

// The reply to what OK has sent is judged before the echo comes back.
void frmSetPass::Form_Close() {
  if (working && radio.Open()) {
    closeWanted = true;
  } else {
    Unload();
  }
}

void frmSetPass::Form_Unload() {
  for (TextBox* box : {&Pass1, &Pass2}) box->Text = "";
  WaitMilliseconds(platform.Events, 100);
  SetEcho(true);
  WaitMilliseconds(platform.Events, 100);
  turn.reset();
}

// Without a radio there is no echo to switch.
void frmSetPass::SetEcho(bool on) {
  if (!radio.Open()) return;
  WithLinkErrors(platform.Dialogs, [&] { radio.SwitchEcho(on); });
}

void frmSetPass::PassRadio_Click(int index) {
  Pass1.Enabled = index == 0;
  Pass2.Enabled = index == 0;
  if (index == 0) Pass1.SetFocus();
}

void frmSetPass::OKButton_Click() {
  if (PassRadio[0].Checked()) {
    SetPassword();
  } else if (ConfirmRemoval()) {
    RemovePassword();
  }
}

// The window opens with the removal chosen when this program has set no password. The radio may
// have one all the same.
bool frmSetPass::ConfirmRemoval() {
  const int began = radio.Epoch();
  const Answer answer = platform.Dialogs.Message(
      {.Text = "Remove the radio's password?\r\rWithout one anybody can change its settings.",
       .Title = "Radio Password Setup",
       .Choice = Buttons::YesNo,
       .Irreversible = true});
  return answer == Answer::Yes && Loaded() && !closeWanted && radio.Epoch() == began;
}

bool frmSetPass::EntriesAreGood() {
  if (Pass1.Text() != Pass2.Text()) {
    platform.Dialogs.Message({"The two passwords do not match!\rPlease reenter the password.",
                              "Error!", Icon::Critical});
  } else if (EqualAnyCase(Pass1.Text(), "none")) {
    // The radio would take it, and log out when it is given.
    platform.Dialogs.Message(
        {"\"none\" can't be a password: the radio takes it as the command to log out.\rPlease "
         "enter another password.",
         "Error!", Icon::Critical});
  } else {
    return true;
  }
  Pass1.SetFocus();
  return false;
}

void frmSetPass::SetPassword() {
  if (!EntriesAreGood()) return;
  if (!radio.SaySecret("k7m2 " + Pass1.Text())) return;
  radio.AwaitText(replyTime, [this] { return radio.PromptsDue() == 0; });
  if (!radio.Open()) return;
  if (Holds(radio.Received(), "DENIED") || Holds(radio.Received(), "INVALID")) {
    main.txtTerm.Text = "*** NEW PASSWORD REFUSED ***";
    return;
  }
  ShowState(true);
  End("*** NEW PASSWORD ACCEPTED ***");
}

// The notice comes last: closing the window brings further prompts.
void frmSetPass::End(const char* notice) {
  const int began = radio.Epoch();
  Unload();
  if (radio.Open() && radio.Epoch() == began) main.txtTerm.Text = notice;
}

void frmSetPass::ShowState(bool protectedNow) {
  main.tbr_Login.Enabled = !protectedNow;
  main.tbr_Logout.Enabled = protectedNow;
  main.ShowRefusesChanges(false);
  StorePassEnabled(protectedNow);
}

void frmSetPass::RemovePassword() {
  radio.Settle();
  radio.Clear();
  radio.Say("k7m2");
  radio.AwaitText(replyTime, [this] {
    return Holds(radio.Received(), ">") && Holds(radio.Received(), "k7m2");
  });
  if (!Loaded() || !radio.Open()) return;
  if (closeWanted) {
    // The radio has no password any more; it is not logged out as well.
    if (Holds(radio.Received(), "PROGRAMMED OK")) StorePassEnabled(false);
    return;
  }
  if (Holds(radio.Received(), "DENIED")) {
    platform.Dialogs.Message(
        {"You must be logged in to disable password protection.", "Error!", Icon::Critical});
    Unload();
    return;
  }
  radio.Say("PASS NONE");
  platform.Events.Sleep(Milliseconds(100));
  radio.Say("");
  ShowState(false);
  End("*** PASSWORD REMOVED ***");
}

void frmSetPass::StorePassEnabled(bool enabled) {
  session.PassEnabled = enabled;
  platform.Preferences.Write("Preferences", "PassEnabled", BooleanText(enabled));
}

}  // namespace quillmark
