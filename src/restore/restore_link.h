#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/frmOrvalent.h"
#include "controls/form.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Thrown when the radio shows no prompt any more (the user has been told), or when the window was
// closed in the middle of a run.
struct RestoreLinkLost {};

// The store and restore window's own way to the radio: a conversation on a serial control of its
// own, which sleeps between its looks and delivers no events. Everything given to it outlives it;
// `window` is the one that holds it.
class RestoreLink {
 public:
  // Runs when the radio is lost, ahead of the box that tells so; gives what to add there.
  using LossTeller = std::function<std::string()>;

  RestoreLink(Platform& platform, Session& session, frmOrvalent& main, const Form& window);

  // Takes over the settings and the number of the main window's port, and opens it. Throws
  // SerialError.
  void Open();
  void Close() { platform.MSComm2.SetPortOpen(false); }
  bool IsOpen() const { return platform.MSComm2.PortOpen(); }

  // Wakes the radio. Ends early on a closed port, and when `cancelled`, which is asked after each
  // event. Throws SerialError and RestoreLinkLost.
  void Wake(const std::function<bool()>& cancelled);
  // Sends a line, without its carriage return, once the radio has shown its prompt to a bare one;
  // that also drops the reply to the command before. On a closed port it tells so in a box and
  // sends nothing; false then. Throws RestoreLinkLost and SerialError.
  bool SendToRadio(const std::string& line);
  // The end of what had come when the last SendToRadio or Drop threw it away: the radio's answer to
  // the line before.
  const std::string& Dropped() const { return dropped; }
  // Asks for a setting in the same way: its word, how its value begins, whether it has many lines.
  // The value may be a refusal. Nothing when no whole reply comes within 400 ms, or 1 s once it has
  // begun. Throws as SendToRadio does, and SerialError on a closed port.
  std::optional<std::string> Ask(Conversation::Question question, const LossTeller& lost = {});
  // Throws away what has come, delivering events while a slow radio is still coming to its end.
  // Throws SerialError on a closed port, and RestoreLinkLost.
  void Drop();

  void Sleep(int ms);
  // Delivers events. Throws RestoreLinkLost when they have closed the window.
  void Pump();

  void MSComm2_OnComm();

 private:
  void CheckOpen() const;
  void AwaitBacklog();
  void NoteDropped();
  // False on a closed port.
  bool AwaitPrompt(const LossTeller& lost = {});
  bool ShowsPrompt();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  const Form& window;
  Conversation radio;
  std::string commEventText;  // the last notice; while there is one, line errors show no box
  bool errorShown = false;
  std::string dropped;
};

}  // namespace quillmark
