#pragma once

#include <cstddef>
#include <string>

#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// The talk with a radio's loader, word by word, and the time that each word is given. A loader that
// keeps up with the row of carriage returns by which it finds the rate is quick: fixed pauses do
// for it. One that lags behind is waited for at each word, as it would lose what comes too soon.
// The firmware upgrade makes one for each run. Throws SerialError.
class LoaderTalk {
 public:
  LoaderTalk(Platform& platform, const Session& session, Conversation& radio);

  // Waits until the radio has answered all that was said to it so far.
  void CatchUp();
  // The carriage returns by which the loader finds a new rate; waits until it has worked them off.
  void FindRate();
  void Erase();
  // Gives it time to erase: 2 s, or longer if it has not answered then. False when the user has
  // cancelled meanwhile.
  bool AwaitErased();
  // Begins to take an image.
  void Program();
  // A slow loader may get the image only when it has answered PROGRAM.
  void AwaitTaking();
  // Behind a whole image: waits for what the loader makes of it.
  void AwaitVerdict();
  bool SaysProgrammed() const;
  // A sentence on what the loader has answered to the image: its last line that is no prompt.
  std::string Answer() const;
  // Starts the new firmware. A slow loader is given time to do so.
  void Exit();

 private:
  void Say(const std::string& word);
  void AwaitAnswer();
  bool Answered() const;

  Platform& platform;
  const Session& session;
  Conversation& radio;
  bool slow = false;
  bool silent = false;     // it says nothing at its own rate
  std::string lastWord;    // that was said,
  std::size_t saidAt = 0;  // and how much had been received then
};

}  // namespace quillmark
