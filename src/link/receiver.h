#pragma once

#include <string>
#include <string_view>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "link/terminal_log.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

class Connection;

// What becomes of each piece of text that the radio sends, and of the events of the serial control:
// RxBuffer, the terminal, the log, the status panel.
class Receiver {
 public:
  Receiver(Platform& platform, Session& session, frmOrvalent& main, Connection& connection,
           Conversation& radio, TerminalLog& log);

  void MSComm1_OnComm();
  // Appends what came to RxBuffer as it is, and filtered to the text box and the log; `data` is
  // changed by the filters.
  void ReceiveText(TextBox& term, std::string& data);

 private:
  void ShowCommStatusText(const std::string& wording);
  void ReportError(const std::string& wording);
  bool SparesTransfer() const;
  void FollowLogin(std::string_view shown);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  Conversation& radio;
  TerminalLog& log;
  std::string CommEventText;
  std::string CommErrorText;
  std::string ReceiveChunk;
  std::string line;  // that is coming in; no more of it than FollowLogin looks at
  bool errorBoxUp = false;
};

}  // namespace quillmark
