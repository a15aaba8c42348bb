#pragma once

#include <functional>

#include "conversation/conversation.h"
#include "platform/platform.h"

namespace quillmark {

// The burst of characters that wakes a radio, or finds a loader that has just started: up to 30
// rounds, 45 s at most against a dead one. The connect, the store and restore window and the
// firmware upgrade wake with it. Throws SerialError.

// How a wake attempt ended.
enum class WakeEnd { Awake, Cancelled, NoAnswer };

// What the caller of a wake attempt does at its steps.
struct WakeSteps {
  // Delivers events, at the head of each round: what the radio said to the last one comes in here.
  std::function<void()> Pump;
  // Asked before each burst, and after each event that a pause between them delivers.
  std::function<bool()> Cancelled;
  // Told after each burst: the round, from 0, and the burst in it, 0 to 3.
  std::function<void(int round, int burst)> Sent{};
};

WakeEnd WakeRadio(Platform& platform, Conversation& radio, const WakeSteps& steps);

}  // namespace quillmark
