#pragma once

#include <string_view>

#include "app/frmOrvalent.h"
#include "link/connection.h"
#include "link/session.h"
#include "platform/platform.h"

namespace quillmark {

// Reads every setting of the radio into the rows of the main window, in a fixed order, one exchange
// at a time: some 40 of them, a few seconds. A read that fails leaves its row as it was. Everything
// given to it outlives it.
class ReadCycle {
 public:
  ReadCycle(Platform& platform, Session& session, frmOrvalent& main, Connection& connection);

  // Throws SerialError when the port is or gets closed.
  void Run();

 private:
  void CheckRadio();
  // Reads `word` into the row; true when echo and prompt were found.
  bool Read(std::string_view word, SettingRow& row, std::string_view refusal);
  // True when the reply to the last command may be that of an earlier, late one.
  bool ReplyIsDoubtful(bool answered);
  bool Answered(std::string_view word) const;
  void RepairEcho();
  void TakeRevision();
  void ProbeLogin();
  void Pause80();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  bool promptOutstanding = false;  // an earlier command has not been answered
};

}  // namespace quillmark
