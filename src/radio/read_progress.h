#pragma once

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "link/connection.h"
#include "platform/event_loop.h"

namespace quillmark {

// What the main window shows of a read for as long as it runs: how far it has come, the connect
// time, which its own timer can't show meanwhile, and that the radio gives no answer.
class ReadProgress : private Ticker {
 public:
  ReadProgress(EventLoop& events, frmOrvalent& main, Connection& connection,
               const Conversation& radio);
  ~ReadProgress();
  ReadProgress(const ReadProgress&) = delete;
  ReadProgress& operator=(const ReadProgress&) = delete;

  // The read has come to setting number `place`, from 1, of `all`.
  void Step(int place, int all);
  // An exchange is over: looks whether the radio has said anything in it.
  void Asked();
  // Each exchange so far drew an answer.
  bool AllAnswered() const { return allAnswered; }

 private:
  void Tick() override;
  void TellSilence();

  EventLoop& events;
  frmOrvalent& main;
  Connection& connection;
  const Conversation& radio;
  const Duration began;
  Duration told{};  // when the notice came up
  bool allAnswered = true;
};

}  // namespace quillmark
