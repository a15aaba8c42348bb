#include "firmware/loader_talk.h"

#include <algorithm>

#include "text/text.h"

namespace quillmark {

namespace {

constexpr int bursts = 20;
constexpr int returns = 1 + 2 * bursts;
constexpr int lostToFindRate = 1;  // carriage returns of a usual loader
constexpr Duration burstPause = Milliseconds(20);
constexpr Duration erasePause = Milliseconds(2000);

// For slow loaders.
constexpr Duration quiet = Milliseconds(1000);  // nothing more comes after that
constexpr Duration longestBacklog = Seconds(60);
constexpr Duration longestErasing = Seconds(20);
constexpr Duration longestAnswer = Seconds(3);
constexpr Duration longestVerdict = Seconds(10);
constexpr Duration answerEnd = Milliseconds(50);

}  // namespace

LoaderTalk::LoaderTalk(Platform& machine, const Session& shared, Conversation& conversation)
    : platform(machine), session(shared), radio(conversation) {}

void LoaderTalk::CatchUp() {
  platform.Events.Pump();
  radio.Settle(quiet, longestBacklog);
}

void LoaderTalk::FindRate() {
  radio.Settle(Duration::zero());
  radio.SayBytes("\r");
  for (int burst = 0; burst < bursts; ++burst) {
    radio.SayBytes("\r\r");
    platform.Events.Sleep(burstPause);
  }
  platform.Events.Pump();
  const auto caughtUp = [this] { return radio.PromptsDue() <= lostToFindRate; };
  slow = !caughtUp();
  if (slow) {
    radio.AwaitText(longestBacklog, [&] { return caughtUp() || radio.QuietFor() >= quiet; });
  }
  silent = radio.PromptsDue() == returns;
  radio.Settle(Duration::zero());
}

void LoaderTalk::Erase() {
  Say("ERASE");
  radio.Prime();
}

bool LoaderTalk::AwaitErased() {
  platform.Events.Sleep(erasePause);
  platform.Events.Pump();
  if (silent) return true;
  const bool waits = radio.PromptsDue() > 0;
  radio.AwaitText(longestErasing, [this] {
    return session.TransferStop || (radio.PromptsDue() == 0 && radio.AtPrompt());
  });
  return !waits || !session.TransferStop;
}

void LoaderTalk::Program() { Say("PROGRAM"); }

void LoaderTalk::AwaitTaking() {
  if (slow && !silent) AwaitAnswer();
}

void LoaderTalk::AwaitVerdict() {
  radio.AwaitText(longestVerdict, [this] { return SaysProgrammed() || radio.AtPrompt(); });
}

bool LoaderTalk::SaysProgrammed() const { return Contains(radio.Received(), "PROGRAMMED OK"); }

std::string LoaderTalk::Answer() const {
  constexpr std::size_t longest = 60;
  std::string_view said = radio.Received();
  said.remove_prefix(std::min(saidAt, said.size()));
  std::string_view last;
  while (!said.empty()) {
    const std::size_t end = std::min(said.find_first_of("\r\n"), said.size());
    const std::string_view line = Trim(said.substr(0, end));
    said.remove_prefix(std::min(end + 1, said.size()));
    const bool counts = !line.empty() && line != lastWord && !line.ends_with('>');
    if (counts) last = line.substr(0, longest);
  }
  if (last.empty()) return "The radio answered nothing.";
  return "The radio answered: " + std::string(last);
}

void LoaderTalk::Exit() {
  Say("EXIT");
  if (slow) AwaitAnswer();
}

void LoaderTalk::Say(const std::string& word) {
  lastWord = word;
  saidAt = radio.Received().size();
  radio.Say(word);
}

void LoaderTalk::AwaitAnswer() {
  radio.AwaitText(longestAnswer, [this] {
    return session.TransferStop || (Answered() && radio.QuietFor() >= answerEnd);
  });
}

// Something other than the echo has come.
bool LoaderTalk::Answered() const {
  std::string_view said = radio.Received();
  said.remove_prefix(std::min(saidAt, said.size()));
  if (said.starts_with(lastWord)) said.remove_prefix(lastWord.size());
  return said.find_first_not_of("\r\n") != std::string_view::npos;
}

}  // namespace quillmark
