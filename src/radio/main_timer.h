#pragma once

#include <functional>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "link/connection.h"
#include "platform/platform.h"
#include "radio/read_cycle.h"
#include "session/session.h"

namespace quillmark {

// What happens once a second: the connect time, the connect at launch, the keep-alive, and, when it
// was asked for, a read of the radio. While the line is taken, no keep-alive and no read starts.
class MainTimer {
 public:
  MainTimer(Platform& platform, Session& session, frmOrvalent& main, Connection& connection,
            ReadCycle& readCycle, Conversation& radio);

  void Timer1_Timer();

  // Closes the store and restore window when it has lost the radio.
  std::function<void()> CloseRestoreWindow;
  // Told after each read cycle that ran to its end.
  std::function<void()> OnReadCycleDone;
  // Told before, when the radio has answered each of its questions.
  std::function<void()> OnRadioRead;

 private:
  void OneSecond();
  void BringEchoBack();
  void KeepAlive();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  ReadCycle& readCycle;
  Conversation& radio;
  Duration nextEchoTry{};
};

}  // namespace quillmark
