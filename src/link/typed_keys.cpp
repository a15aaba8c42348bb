#include "link/typed_keys.h"

#include <utility>

#include "link/serial_failure.h"

namespace quillmark {

namespace {

constexpr char backspace = 8;
constexpr std::size_t mostTyped = 4096;  // characters that wait for the line
constexpr Duration longestThought = Seconds(10);
constexpr Duration longestPause = Seconds(3);  // between the keys of a line

}  // namespace

TypedKeys::TypedKeys(Platform& machine, const Session& shared, TextBox& box,
                     Conversation& conversation)
    : platform(machine), session(shared), terminal(box), radio(conversation) {}

TypedKeys::~TypedKeys() { platform.Events.StopTimer(*this); }

char TypedKeys::txtTerm_KeyPress(char key) {
  const bool lost = LosesKey(key);
  if (!platform.MSComm1.PortOpen()) return key;
  if (lost) {
    platform.Desktop.Beep();
    return 0;
  }
  SendTyped(key);
  if (session.LocalEcho) return key;
  terminal.SetSelStart(terminal.Text().size());
  return 0;
}

// A half-typed line in front of a password would change it, so keys are lost while a window asks
// for one. What was typed before a reconnect is not sent after it. A line that has lost some keys
// would be another line: all of it is lost, up to its end or until the user pauses.
bool TypedKeys::LosesKey(char key) {
  const Duration now = platform.Events.Now();
  const bool sameLine = now < lineUntil;
  lineUntil = key == '\r' ? now : now + longestPause;
  lineLost =
      radio.Turns.TakenForSecret() || (sameLine && (lineLost || typedEpoch != radio.Epoch()));
  if (lineLost) typed.erase(typed.rfind('\r') + 1);
  return lineLost;
}

// Characters that are typed during an exchange wait for its end and go out together. While a
// command is half typed, the terminal has the line: until its carriage return, or until the user
// has typed nothing for too long.
void TypedKeys::SendTyped(char key) {
  if (typedEpoch != radio.Epoch()) ForgetTyped();
  typedEpoch = radio.Epoch();
  if (typed.size() == mostTyped) {
    platform.Desktop.Beep();
    return;
  }
  typed += key;
  if (typing) return SendAllTyped();
  if (typed.size() == 1) radio.Turns.WhenFree([this] { SendAllTyped(); });
}

void TypedKeys::SendAllTyped() {
  const std::string characters = std::exchange(typed, {});
  if (characters.empty() || !radio.Open()) return ForgetTyped();
  WithLinkErrors(platform.Dialogs, [&] { radio.SayBytes(characters); });
  const std::size_t lineEnd = characters.rfind('\r');
  begun =
      lineEnd == std::string::npos ? begun + characters.size() : characters.size() - lineEnd - 1;
  if (begun == 0) return ForgetTyped();
  if (!typing) typing.emplace(radio.Turns);
  platform.Events.StartTimer(*this, longestThought);
}

void TypedKeys::ForgetTyped() {
  platform.Events.StopTimer(*this);
  typed.clear();
  begun = 0;
  typing.reset();
}

// The next command would become the rest of the line.
void TypedKeys::Tick() {
  if (radio.Open() && typedEpoch == radio.Epoch()) {
    WithLinkErrors(platform.Dialogs, [this] { radio.SayBytes(std::string(begun, backspace)); });
  }
  ForgetTyped();
}

}  // namespace quillmark
