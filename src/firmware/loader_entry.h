#pragma once

#include <string>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "link/connection.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Brings a radio that runs its firmware into its loader: asks radio and user, has the firmware
// erased, and wakes the loader up. The firmware upgrade makes one for each run. Throws SerialError.
class LoaderEntry {
 public:
  LoaderEntry(Platform& platform, Session& session, frmOrvalent& main, Connection& connection,
              Conversation& radio);

  // `note` stands in the details of the question to the user. False when the upgrade is over: the
  // user said No, or the radio did not wake up. On True RxBuffer tells whether the radio is in its
  // loader.
  bool Enter(const std::string& newVersion, const std::string& note);

 private:
  bool UserConfirms(const std::string& newVersion, const std::string& note);
  void ShowErasing();
  bool RecoverPrompt();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  Conversation& radio;
};

// Whether the last prompt that the radio has shown is that of its loader.
bool AtLoaderPrompt(const Conversation& radio);

}  // namespace quillmark
