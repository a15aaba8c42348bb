#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "controls/text_box.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Sends the keys that the user types into the terminal to the radio, when nobody else has the line.
class TypedKeys : private Ticker {
 public:
  // `terminal` is the box that the user types into.
  TypedKeys(Platform& platform, const Session& session, TextBox& terminal, Conversation& radio);
  ~TypedKeys();
  TypedKeys(const TypedKeys&) = delete;
  TypedKeys& operator=(const TypedKeys&) = delete;

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

  Platform& platform;
  const Session& session;
  TextBox& terminal;
  Conversation& radio;
  std::string typed;                      // and not sent so far
  int typedEpoch = 0;                     // of the link that it was typed at
  std::optional<LineTurns::Turn> typing;  // a line was begun
  std::size_t begun = 0;                  // so many characters of it were sent
  Duration lineUntil{};                   // a key before that belongs to the line of the last one
  bool lineLost = false;                  // that line has lost a key
};

}  // namespace quillmark
