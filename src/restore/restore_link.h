#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/frmOrvalent.h"
#include "controls/form.h"
#include "link/session.h"
#include "platform/platform.h"

namespace quillmark {

// Thrown when the radio shows no prompt any more (the user has been told), or when the window was
// closed in the middle of a run.
struct RestoreLinkLost {};

// The store and restore window's own way to the radio: it sends, sleeps, and takes the input
// itself. Everything given to it outlives it; `window` is the one that holds it.
class RestoreLink {
 public:
  RestoreLink(Platform& platform, Session& session, frmOrvalent& main, const Form& window);

  // Takes over the settings and the number of the main window's port, and opens it. Throws
  // SerialError.
  void Open();
  void Close() { platform.MSComm2.SetPortOpen(false); }
  bool IsOpen() const { return platform.MSComm2.PortOpen(); }

  // Sends a whole line, its carriage return included, once the radio has shown its prompt to a bare
  // one; that also drops the reply to the command before. On a closed port it tells so in a box and
  // sends nothing. Throws RestoreLinkLost and SerialError.
  void SendToRadio(const std::string& text);
  // Asks for a setting; its value, or nothing when no whole reply comes within 400 ms. Throws as
  // SendToRadio does.
  std::optional<std::string> Ask(const std::string& word);
  // Throws SerialError on a closed port.
  void Output(const std::string& bytes) { platform.MSComm2.Output(bytes); }
  std::string Take();

  void Sleep(int ms);
  // Delivers events. Throws RestoreLinkLost when they have closed the window.
  void Pump();

  void MSComm2_OnComm();

 private:
  bool PromptAfter(const char* bytes);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  const Form& window;
  std::string commEventText;  // the last notice; while there is one, line errors show no box
  bool errorShown = false;
};

// The value in a reply that is laid out as echo of the word, line end, value, line end, prompt;
// nothing while it is not whole. Bare prompts between the echo and the value answer earlier
// carriage returns.
std::optional<std::string> CutRestoreReply(std::string_view received, std::string_view word,
                                           bool inSetupMode);

}  // namespace quillmark
