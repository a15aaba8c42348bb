#include "settings/option_window.h"

#include <utility>

#include "link/serial_failure.h"

namespace quillmark {

OptionWindow::OptionWindow(std::string name, Platform& machine, frmOrvalent& window)
    : Form(std::move(name)), platform(machine), main(window) {}

void OptionWindow::Send(const std::string& command) { platform.MSComm1.Output(command + "\r"); }

std::function<void()> OptionWindow::Handler(std::function<void()> act) {
  return [this, act = std::move(act)] {
    try {
      act();
    } catch (const SerialError& error) {
      linkLost = true;
      ShowLinkError(platform.Dialogs, error);
      Unload();
    }
  };
}

void OptionWindow::Form_Unload() {
  if (linkLost) return;
  try {
    Send("");
  } catch (const SerialError& error) {
    ShowLinkError(platform.Dialogs, error);
  }
}

}  // namespace quillmark
