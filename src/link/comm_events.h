#pragma once

#include <string>

namespace quillmark {

// What a code of the serial control means to the user.
struct CommNotice {
  enum class Kind { Nothing, Received, Event, Error };
  Kind What;
  std::string Wording;
};

// A code that the table does not know is an error of its own wording.
CommNotice NoticeOf(int code);

// The cause and the cure when the port vanished; `reconnect` is the rest of a sentence, what to do
// in this window once the adapter is plugged in again.
std::string VanishedDetails(const std::string& reconnect);

}  // namespace quillmark
