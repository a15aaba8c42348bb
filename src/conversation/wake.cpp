#include "conversation/wake.h"

namespace quillmark {

namespace {

constexpr int rounds = 30;
constexpr int bursts = 4;
constexpr Duration burstPause = Milliseconds(100);
constexpr Duration quiet = Milliseconds(150);
constexpr Duration longestThought = Seconds(1);  // of a slow radio about one line
constexpr Duration longestAnswer = Seconds(4);

// True when the round was played to its end.
bool PlayRound(Platform& platform, Conversation& radio, const WakeSteps& steps, int round) {
  steps.Pump();
  if (steps.Cancelled()) return false;
  radio.SayBytes("\x1B\r\n");
  radio.Rest(Milliseconds(static_cast<int>(platform.Random.Next() * 701) + 400), steps.Cancelled);
  for (int burst = 0; burst < bursts; ++burst) {
    if (steps.Cancelled()) return false;
    radio.SayBytes("\r\r");
    radio.Rest(burstPause, steps.Cancelled);
    if (steps.Cancelled()) return false;
    if (steps.Sent) steps.Sent(round, burst);
  }
  return true;
}

// A slow radio still answers the bursts. More bursts would add text after its prompt.
bool IsAwake(Conversation& radio) {
  if (radio.AtPrompt()) return true;
  if (FindPrompt(radio.Received(), 0, true).Kind == PromptKind::None) return false;
  return radio.AwaitText(longestAnswer, [&radio] {
    return radio.QuietFor() >= (radio.AtPrompt() ? quiet : longestThought);
  }) && radio.AtPrompt();
}

}  // namespace

WakeEnd WakeRadio(Platform& platform, Conversation& radio, const WakeSteps& steps) {
  for (int round = 0; round < rounds; ++round) {
    if (!PlayRound(platform, radio, steps, round)) return WakeEnd::Cancelled;
    radio.TakeIfItself();
    if (IsAwake(radio)) return WakeEnd::Awake;
  }
  return WakeEnd::NoAnswer;
}

}  // namespace quillmark
