#include "conversation/conversation.h"

#include <algorithm>
#include <utility>

#include "text/at_end.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration echoTime = Milliseconds(500);  // for a radio to switch its echo
constexpr Duration secretTime = Seconds(1);       // between the pieces of a reply to a secret
constexpr Duration look = Milliseconds(10);
constexpr std::size_t longestHead = 8;  // "LOADER>" and a bit
constexpr std::size_t longestUnkeying = 256;
constexpr std::size_t longestSaid = 64;
constexpr char backspace = 8;

}  // namespace

Conversation::Conversation(SerialPort& itsPort, EventLoop& loop, Session& shared, LinkState& state,
                           Hears how)
    : Turns(loop, state), port(itsPort), events(loop), session(shared), link(state), hears(how) {}

std::string Conversation::Hear(std::string_view received) {
  if (received.empty()) return {};
  EndOldSecret();
  lastByte = lastHeard = events.Now();
  session.RxBuffer.Append(received);
  std::string shown;
  for (const char byte : received) {
    if (!secretDue) {
      shown += byte;
      Answers.Hear(byte);
    }
    Follow(byte);
  }
  return shown;
}

void Conversation::Discard(std::string_view received) {
  Hear(received);
  Prime();
  session.RxBuffer.Append(" ");
}

void Conversation::Take() { Hear(port.Input()); }

// Prompts stand at the head of a line; what follows one stands there too.
void Conversation::Follow(char byte) {
  if (unkeying && unkeying->size() < longestUnkeying) *unkeying += byte;
  if (byte == '\n') {
    lineHead.clear();
    return;
  }
  if (lineHead.size() < longestHead) lineHead += byte;
  if (byte != '>') return;
  const PromptPlace prompt = FindPrompt(lineHead, 0, true);
  if (prompt.Kind == PromptKind::None || prompt.At != 0 || prompt.End != lineHead.size()) return;
  lineHead.clear();
  SeePrompt(prompt.Kind);
}

void Conversation::SeePrompt(PromptKind kind) {
  Answers.SeePrompt();
  int& awaited = due > 0 ? due : late;
  if (awaited > 0) --awaited;
  if (due == 0 && late == 0) secretDue = false;
  if (due == 0) SeeKeyingPrompt(kind);
  // A page of a report says nothing about the mode.
  if (kind == PromptKind::More) return;
  lastPrompt = kind;
  session.InSetupMode = kind == PromptKind::Setup;
}

// A prompt may be lost: the terminal is silent for a limited time only.
void Conversation::EndOldSecret() {
  if (QuietFor() >= secretTime) secretDue = false;
}

void Conversation::Sent(int prompts) {
  EndOldSecret();
  due += prompts;
  lastByte = events.Now();
}

void Conversation::Send(const std::string& line, int prompts) {
  port.Output(line + "\r");
  Sent(prompts);
  FollowKeying(line);
}

void Conversation::Say(const std::string& line, int prompts) {
  Send(line, prompts);
  Answers.Sent(line);
  if (OnSaid) OnSaid(line);
}

void Conversation::SayBytes(const std::string& bytes) {
  // What is typed may be a secret.
  if (std::any_of(bytes.begin(), bytes.end(), [](char c) { return c >= ' '; })) Answers.Clear();
  port.Output(bytes);
  Sent(static_cast<int>(std::count(bytes.begin(), bytes.end(), '\r')));
  for (const char byte : bytes) {
    if (byte == '\r') {
      FollowKeying(std::exchange(saidHead, {}));
    } else if (byte == backspace) {
      if (!saidHead.empty()) saidHead.pop_back();
    } else if (byte >= ' ' && saidHead.size() < longestSaid) {
      saidHead += byte;
    }
  }
}

// Whoever keys it: the window of the mode, or a line that is typed.
void Conversation::FollowKeying(std::string_view line) {
  if (lastPrompt != PromptKind::Setup && !session.InSetupMode) return;
  if (EqualAnyCase(line, "KEY")) {
    unkeying.reset();
    SetTransmitter(LinkState::Transmitter::Keyed);
  } else if (EqualAnyCase(line, "DKEY")) {
    unkeying.emplace();
  }
}

// It is off when the radio has taken the word, or has left the mode.
void Conversation::SeeKeyingPrompt(PromptKind kind) {
  const bool setup = kind == PromptKind::Setup;
  if (setup && (!unkeying || IsRefusal(*unkeying))) return;
  if (kind != PromptKind::More) SetTransmitter(LinkState::Transmitter::Off);
}

void Conversation::SetTransmitter(LinkState::Transmitter next) {
  if (next == LinkState::Transmitter::Off) unkeying.reset();
  if (std::exchange(link.TransmitterIs, next) != next && link.OnTransmitter) link.OnTransmitter();
}

bool Conversation::SaySecret(const std::string& line) {
  const int began = epoch;
  if (!link.EchoIsOff) SwitchEcho(false);
  const int switches = echoSwitches;
  // A prompt that is still due would end the silence too early; it stays counted.
  AwaitText(echoTime, [this] { return due == 0 || QuietFor() >= echoTime; });
  // Left or disconnected meanwhile.
  if (epoch != began || echoSwitches != switches) return false;
  Prime();
  Answers.Clear();
  Send(line, 1);
  secretDue = true;
  return true;
}

bool Conversation::AwaitText(Duration limit, const std::function<bool()>& done) {
  const Duration deadline = events.Now() + limit;
  const int began = epoch;
  for (;;) {
    if (TakesItself() && port.PortOpen()) Take();
    if (epoch != began || !port.PortOpen() || (GivenUp && GivenUp())) return false;
    if (done()) return true;
    const Duration left = deadline - events.Now();
    if (left <= Duration::zero()) return false;
    const Duration pause = std::min(left, look);
    if (hears == Hears::Itself) {
      events.Sleep(pause);
    } else {
      events.Wait(pause);
    }
  }
}

void Conversation::Rest(Duration time, const std::function<bool()>& over) {
  const Duration end = events.Now() + std::min(time, events.LongestPause());
  const int began = epoch;
  {
    const auto underWay = Raised(resting);
    while (epoch == began && !over() && events.Now() < end) events.Wait(end - events.Now());
  }
  port.AnnounceAgain();
}

void Conversation::AwaitQuiet(Duration quiet, Duration limit) {
  AwaitText(limit, [&] { return QuietFor() >= quiet; });
}

void Conversation::Settle(Duration quiet, Duration limit) {
  const bool others = std::exchange(handedOver, false);
  if (others) lastByte = events.Now();
  AwaitText(limit, [&] { return (due == 0 && !others) || QuietFor() >= quiet; });
  late += std::exchange(due, 0);
  secretDue = false;
}

bool Conversation::CommandExchange(const std::string& text, std::string_view awaited,
                                   Duration limit) {
  Prime();
  const Duration began = events.Now();
  Say(text);
  // The prompt comes last and is quick to look for.
  return AwaitText(limit - (events.Now() - began), [&] {
    return Contains(session.RxBuffer, ">") && Contains(session.RxBuffer, awaited);
  });
}

// Nothing but line ends, the prompt, and the word itself where the radio still echoed.
bool Conversation::EchoReplyIsGood(const std::string& word) const {
  std::string_view text = session.RxBuffer;
  if (const std::size_t at = quillmark::Find(text, word)) text.remove_prefix(at - 1 + word.size());
  return FindReply(text, {.Command = "", .Echo = false}).Came == Reply::State::Bare;
}

bool Conversation::SwitchEcho(bool on, std::string_view afterReturn) {
  constexpr int attempts = 2;
  const std::string word = on ? "eeco" : "deco";
  const int mine = ++echoSwitches;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    // What earlier lines bring is not the answer to this one.
    AwaitText(echoTime, [this] { return due == 0; });
    if (echoSwitches != mine) return false;
    late += std::exchange(due, 0);
    Prime();
    // Set before the answer: whoever leaves meanwhile must know that the echo may be off.
    if (!on) link.EchoIsOff = true;
    port.Output(word + "\r" + std::string(afterReturn));
    Sent(1);
    const bool answered = AwaitText(echoTime, [this] { return due == 0; });
    // Another exchange may have switched it the other way meanwhile.
    if (!port.PortOpen() || !answered || echoSwitches != mine) return false;
    if (EchoReplyIsGood(word)) {
      link.EchoIsOff = !on;
      return true;
    }
  }
  return false;
}

void Conversation::LeaveEchoOn() {
  if (link.EchoIsOff && Open()) Say("eeco");
  link.EchoIsOff = false;
}

void Conversation::BeginLink() {
  link.EchoIsOff = false;
  Restart();
}

void Conversation::Restart() {
  ++epoch;
  due = 0;
  late = 0;
  secretDue = false;
  resting = false;
  lineHead.clear();
  Answers.Clear();
  saidHead.clear();
  unkeying.reset();
  if (link.TransmitterIs == LinkState::Transmitter::Keyed) {
    SetTransmitter(LinkState::Transmitter::Unknown);
  }
  lastByte = lastHeard = events.Now();
}

}  // namespace quillmark
