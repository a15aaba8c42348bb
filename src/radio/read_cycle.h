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
  // False when the radio is in its loader, where there is nothing to read.
  bool CheckRadio();
  void ReadAll();
  // Reads `word` into the row; true when echo and prompt were found.
  bool Read(std::string_view word, SettingRow& row, std::string_view refusal);
  // True when the reply to the command may be that of an earlier, late one.
  bool ReplyIsDoubtful(std::string_view word, bool answered);
  bool Answered(std::string_view word) const;
  void RepairEcho();
  void TakeRevision();
  void ProbeLogin();
  void AwaitProbeReplies();
  void Pause80();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  bool promptOutstanding = false;  // an earlier command has not been answered
  bool ownerNameIsWhole = false;   // this cycle has read it, to its last character
};

}  // namespace quillmark
