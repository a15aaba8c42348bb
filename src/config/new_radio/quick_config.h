#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/frmOrvalent.h"
#include "config/config_sender.h"
#include "config/direct_run.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "settings/frmSimpleRptrSetup.h"

namespace quillmark {

struct Role;

// Turns a new radio into a master, a remote, a repeater or a sub-remote: clears it with the default
// set, then sends the few commands of the role, with pauses in place of replies; the read that
// follows shows what came of it. Everything given to it outlives it.
class QuickConfig {
 public:
  QuickConfig(Platform& platform, frmOrvalent& main, Conversation& radio, DirectRun& run,
              ConfigSender& sender);

  // Joins the buttons to their handlers.
  void Wire();
  // The picture that explains repeaters.
  void cmdRptHelp_Click();
  // Closes the picture if it is open: the main window is about to go.
  void Form_QueryUnload();

 private:
  // What the user has entered, and confirmed.
  struct Entries {
    std::string Baud;
    std::string Address;
    int Power;  // dBm
  };
  void Role_Click(const Role& role, const Button& button);
  bool Confirmed(const Role& role, const Entries& entries) const;
  void ProgramRole(const Role& role, const Entries& entries);
  static std::vector<std::string> RoleCommands(const Role& role, const Entries& entries);
  void ClearUnit(const Role& role, const std::vector<std::string>& commands);
  // `commands` are those of RoleCommands.
  void SendRole(const Role& role, const std::vector<std::string>& commands);
  void AskFurther(const Role& role);
  void AskForRepeater();
  void AskXaddr();

  Platform& platform;
  frmOrvalent& main;
  Conversation& radio;
  DirectRun& run;
  ConfigSender& sender;
  std::shared_ptr<frmSimpleRptrSetup> picture;
};

}  // namespace quillmark
