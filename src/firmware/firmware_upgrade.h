#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "app/frmOrvalent.h"
#include "app/held_controls.h"
#include "conversation/conversation.h"
#include "firmware/firmware_file.h"
#include "firmware/firmware_transfer.h"
#include "firmware/loader_talk.h"
#include "link/connection.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Loads a firmware file into the radio: lets the user choose it, asks at each doubt, brings the
// radio into its loader, sends the file, tells how it went and connects anew. One handler from
// start to end, during which the windows stay alive.
class FirmwareUpgrade {
 public:
  FirmwareUpgrade(Platform& platform, Session& session, frmOrvalent& main, Connection& connection,
                  Conversation& radio);

  // Joins the menu entry and the toolbar's button to the flow.
  void Wire();
  // Asked before a start: false, with a box, when something else has the radio. Set by the
  // application.
  std::function<bool()> MayStart;
  // Told before the radio is asked to go into its loader, while the upgrade has the line; `run` is
  // "firmware 3.2.1". Set by the application; may be empty.
  std::function<void(const std::string& run)> BeforeOverwrite;
  // Does nothing while an upgrade runs.
  void mnuSendText_Click() { Run({}); }
  // The same with a file that the user has chosen already: when the line is free, and not while
  // something else has the radio.
  void Load(const std::filesystem::path& path);
  // From the choice of the file to the end.
  bool UnderWay() const { return running; }
  // The radio is being brought into its loader, or is in it.
  bool Loading() const { return loading; }

 private:
  // What the user has chosen to load.
  struct Chosen {
    std::filesystem::path Path;
    std::string Version;
    std::string Note;  // on the file, for the details of boxes; mostly empty
  };

  // The user chooses the file when `given` is empty.
  void Run(const std::filesystem::path& given);
  // The menu entry and the toolbar's button.
  void EnableEntries(bool enabled);
  std::optional<Chosen> ChooseFirmware(const std::filesystem::path& given);
  std::optional<std::filesystem::path> ChooseFile();
  // False when the user does not want to go on.
  bool PassesQuestions(FirmwareFile& file, Chosen& chosen);
  bool AskAboutFaults(FirmwareFile& file, Chosen& chosen);
  bool AskToContinue(const std::string& doubt);

  // True when the link is to be connected anew.
  bool Load(const Chosen& chosen, HeldControls& controls);
  // Waits for the loader's verdict and tells it. `missing` tells what was not sent.
  void Judge(LoaderTalk& loader, const FirmwareTransfer& transfer, const std::string& missing,
             const std::string& note);
  void EndSession();
  void GiveUp(const SerialError& error);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  Conversation& radio;
  std::string outcome;  // of the last transfer, as a sentence
  bool running = false;
  bool loading = false;
};

}  // namespace quillmark
