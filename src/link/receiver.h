#pragma once

#include <optional>
#include <string>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "link/terminal_log.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

class Connection;

// What becomes of each piece of text that the radio sends, and of the events of the serial control:
// RxBuffer, the terminal, the log, the status panel.
class Receiver : private Ticker {
 public:
  Receiver(Platform& platform, Session& session, frmOrvalent& main, Connection& connection,
           Conversation& radio, TerminalLog& log);

  ~Receiver();
  Receiver(const Receiver&) = delete;
  Receiver& operator=(const Receiver&) = delete;

  void MSComm1_OnComm();
  // Appends what came to RxBuffer as it is, and filtered to the text box and the log; `data` is
  // changed by the filters.
  void ReceiveText(TextBox& term, std::string& data);
  // A key typed into the terminal goes to the radio while the port is open, else into the box.
  // While another part of the program has the line it waits.
  char txtTerm_KeyPress(char key);

 private:
  // Whether a key does not go to the radio.
  bool LosesKey(char key);
  void SendTyped(char key);
  void SendAllTyped();
  void ForgetTyped();
  // The user has typed nothing for too long: the half-typed command is taken back.
  void Tick() override;
  void ShowCommStatusText(const std::string& wording);
  void ReportError(const std::string& wording);
  bool SparesTransfer() const;

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  Conversation& radio;
  TerminalLog& log;
  std::string CommEventText;
  std::string CommErrorText;
  std::string ReceiveChunk;
  std::string typed;                      // and not sent so far
  int typedEpoch = 0;                     // of the link that it was typed at
  std::optional<LineTurns::Turn> typing;  // a line was begun
  std::size_t begun = 0;                  // so many characters of it were sent
  Duration lineUntil{};                   // a key before that belongs to the line of the last one
  bool lineLost = false;                  // that line has lost a key
  bool errorBoxUp = false;
};

}  // namespace quillmark
