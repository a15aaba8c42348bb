#include "firmware/frmProgram.h"

#include <chrono>
#include <initializer_list>

namespace quillmark {

frmProgram::frmProgram(Platform& machine, Session& shared)
    : Form("frmProgram"),
      Label1(*this, this, "Label1"),
      ProgressBar1(*this, this, "ProgressBar1", 0, 100, 0),
      lblLeft(*this, this, "lblLeft"),
      Command1(*this, this, "Command1", "Cancel"),
      lblQuestion(*this, this, "lblQuestion",
                  "A transfer that is stopped leaves the radio without\r"
                  "its program, until it is upgraded again. Stop it?"),
      cmdYes(*this, this, "cmdYes", "Yes"),
      cmdNo(*this, this, "cmdNo", "No"),
      platform(machine),
      session(shared) {
  Caption = "Downloading Software to the radio...";
  lblLeft.Visible = false;
  Ask(false);
  Command1.OnClick = [this] { Ask(true); };
  cmdYes.OnClick = [this] { Stop(); };
  cmdNo.OnClick = [this] { Ask(false); };
}

// No box: the transfer could not go on behind it.
void frmProgram::Ask(bool asking) {
  Command1.Visible = !asking;
  for (Control* control : std::initializer_list<Control*>{&lblQuestion, &cmdYes, &cmdNo}) {
    control->Visible = asking;
  }
  if (asking) cmdNo.SetFocus();
}

void frmProgram::Show() { platform.Windows.Show(shared_from_this()); }

void frmProgram::ShowBytes(std::int64_t sent, std::int64_t length, Duration elapsed) {
  std::string text = std::to_string(sent) + " of " + std::to_string(length) + " bytes";
  if (sent > 0) {
    const double left = static_cast<double>(elapsed.count()) / static_cast<double>(sent) *
                        static_cast<double>(length - sent);
    const auto whole = std::chrono::ceil<std::chrono::seconds>(Duration(std::int64_t(left)));
    text += ", " + std::to_string(whole.count()) + " s left";
  }
  lblLeft.Text = text;
  lblLeft.Visible = true;
}

void frmProgram::Stop() {
  session.StopTransfer();
  Unload();
}

void frmProgram::Form_Activate() {
  AlwaysOnTop = true;
  session.BeginTransfer();
}

void frmProgram::Form_Deactivate() {
  if (session.TransferStop) {
    Unload();
  } else {
    Show();
  }
}

}  // namespace quillmark
