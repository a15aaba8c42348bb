#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "sim/sim_radio.h"
#include "sim/sim_words.h"

// How the simulated radio handles what is typed: one line after the other, each with its echo, its
// think time and its reply.

namespace quillmark::sim {

namespace {

constexpr char carriageReturn = 13;
constexpr char escape = 27;
constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t mostLines = 20'000;

}  // namespace

void SimRadio::Hear(Time at, char byte) {
  if (input.Empty() && CanTake()) return Take(at, {at, byte});
  SimInput::Byte* kept = input.Keep({at, byte});
  if (kept != nullptr && !options.EchoesInTurn) Show(at, *kept);
}

// An image goes in even while the loader still answers the word that began it.
bool SimRadio::CanTake() const {
  return !work || (session.At == Level::Loader && loader.Receiving());
}

void SimRadio::Take(Time at, SimInput::Byte byte) {
  if (at < deafUntil) return;
  if (session.At == Level::Loader && loader.Receiving()) {
    TakeImageByte(at, byte);
  } else {
    TakeTypedByte(at, byte);
  }
}

void SimRadio::TakeTypedByte(Time at, SimInput::Byte byte) {
  if (!byte.Shown) Show(at, byte);
  // Only the carriage return ends the reports.
  if (session.Pending == SimSession::Waits::WhileReporting && byte.Value != carriageReturn) return;
  if (byte.Value == escape) session.Pending = SimSession::Waits::No;
  if (const auto text = input.Take(byte.Value)) Begin(at, byte, *text);
}

void SimRadio::TakeImageByte(Time at, const SimInput::Byte& byte) {
  const auto verdict = loader.Take(byte.At, byte.Value);
  if (verdict) return GiveVerdict(at, *verdict);
  if (loader.ResetsNow()) return Restart(at, RadioAnswer::Next::EnterLoader);
  if (loader.StallsNow()) deafUntil = at + options.Loader.StallTime;
}

void SimRadio::Show(Time at, SimInput::Byte& byte) {
  const bool ends = byte.Value == carriageReturn;
  byte.Shown = true;
  if (session.Pending == SimSession::Waits::WhileReporting && !ends) return;
  const bool muted = IsMuted(input.ShownCommand());
  const std::string shown = input.Show(byte.Value);
  if (!session.Echo || muted || (ends && options.Overlaps)) return;
  Send(at, shown);
  byte.LineEndShown = ends;
}

void SimRadio::Begin(Time at, const SimInput::Byte& end, const std::string& text) {
  Remember(end.At, text);
  const int command = input.Commands() + (text.empty() ? 1 : 0);
  work = Work{.Line = text,
              .Command = command,
              .LineEndShown = end.LineEndShown,
              .Begun = at,
              .Due = at + ThinkTime()};
  if (!options.ActsLate || options.Overlaps || session.At == Level::Loader) Act(at);
  if (options.Overlaps) Give(at);
}

void SimRadio::Remember(Time at, const std::string& text) {
  if (lines.size() == mostLines) lines.erase(lines.begin(), lines.begin() + mostLines / 2);
  lines.push_back({at, text});
  if (OnLine) OnLine(lines.back());
}

RadioAnswer SimRadio::Execute(Time at, const std::string& text) {
  if (session.At != Level::Loader) return commands.Execute(at, text);
  if (Trimmed(text).empty() || text.starts_with('#')) return PromptOnly();
  if (const auto answer = commands.ExecuteSessionWord(text)) return *answer;
  return loader.Execute(text);
}

// Does what the line says and makes up the reply.
void SimRadio::Act(Time at) {
  const RadioAnswer answer = Execute(at, work->Line);
  Reply reply{.Command = work->Command,
              .ToEmptyLine = work->Line.empty(),
              .Start = work->Begun + std::max(ThinkTime(), answer.Busy),
              .Text = std::string(lineEnd),
              .Prompt = answer.Prompt ? Prompt() : ""};
  if (answer.Text) reply.Text += *answer.Text + std::string(lineEnd);
  if (const RadioAnswer* other = Override(work->Line)) {
    reply.Text = *other->Text;
    if (!other->Prompt) reply.Prompt.clear();
  }
  if (answer.Busy > Time(0)) deafUntil = work->Begun + answer.Busy;
  nextReport = reply.Start;
  if (OnReply) OnReply(reply);
  work->Due = reply.Start;
  work->Ready = std::move(reply);
  work->Then = answer.Then;
}

void SimRadio::Proceed(Time at) {
  if (!work->Ready) Act(at);
  if (work->Due > at) return;
  Give(at);
  while (CanTake()) {
    const auto byte = input.Next();
    if (!byte) return;
    Take(at, *byte);
  }
}

void SimRadio::Give(Time at) {
  if (!work || !work->Ready) return;
  const Work done = std::move(*work);
  work.reset();
  std::string_view text = done.Ready->Text;
  if (done.LineEndShown && text.starts_with(lineEnd)) text.remove_prefix(lineEnd.size());
  if (!IsMuted(done.Command)) Send(done.Due, std::string(text) + done.Ready->Prompt);
  if (done.Then != RadioAnswer::Next::Stay) Restart(at, done.Then);
}

Time SimRadio::ThinkTime() const {
  if (session.At != Level::Loader) return options.ThinkTime;
  return options.Loader.ThinkTime.value_or(options.ThinkTime);
}

const RadioAnswer* SimRadio::Override(const std::string& text) const {
  const RadioAnswer* found = nullptr;
  std::size_t length = 0;
  for (const auto& [word, answer] : overrides) {
    if (!ValueAfter(text, word) || (found != nullptr && word.size() < length)) continue;
    found = &answer;
    length = word.size();
  }
  return found;
}

}  // namespace quillmark::sim
