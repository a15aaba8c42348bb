#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "conversation/conversation.h"

namespace quillmark {

// Finds out whether the radio takes changes: programs a setting with what it holds already, the
// echo switched off so that it does not show in the terminal. A radio that wants a login refuses.
// The read cycle asks with the owner's name; the store and restore window and the encryption code
// with the network address. Throws SerialError.

struct LoginProbe {
  std::string Word;    // reads the setting
  std::string Prefix;  // in front of the value when it is sent; empty where the value has it
  Duration Wait;       // for the radio's answer
  std::string_view Opening{};
};

enum class LoginState { LoggedIn, Denied, Unknown };

// Whether a value may be sent back: one line of 1 to 30 printable characters.
bool MayBeSentBack(const std::string& value);

// `value` is what a read has just brought. It is read once more, and sent only when that confirms
// it letter by letter. Unknown: nothing was sent, or the link went meanwhile. `answered` runs when
// the wait is over, with the echo still off: what the radio said is in RxBuffer.
LoginState ProbeLogin(Conversation& radio, const LoginProbe& probe, const std::string& value,
                      const std::function<void(LoginState)>& answered);
// The same with a value that it reads first.
LoginState ProbeLogin(Conversation& radio, const LoginProbe& probe,
                      const std::function<void(LoginState)>& answered);

}  // namespace quillmark
