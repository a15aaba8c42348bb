#include "firmware/frmProgram.h"

#include <chrono>

namespace quillmark {

frmProgram::frmProgram(Platform& machine, Session& shared)
    : Form("frmProgram"),
      Label1(*this, this, "Label1"),
      ProgressBar1(*this, this, "ProgressBar1", 0, 100, 0),
      lblLeft(*this, this, "lblLeft"),
      Command1(*this, this, "Command1", "Cancel"),
      platform(machine),
      session(shared) {
  Caption = "Downloading Software to the radio...";
  lblLeft.Visible = false;
  Command1.OnClick = [this] { Command1_Click(); };
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
