#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "conversation/conversation.h"
#include "text/text.h"

// How the conversation asks for a value: once, and once more when the reply was damaged.

namespace quillmark {

namespace {

constexpr Duration hurtQuiet = Milliseconds(150);  // no more of a hurt reply comes after that
constexpr Duration bareQuiet = Milliseconds(500);  // no text comes behind a bare prompt after that
constexpr Duration lateTime = Milliseconds(500);   // for what follows a late reply

bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 32 || code == 127;
}

bool IsLikely(const Conversation::Question& question, std::string_view text) {
  if (!question.ManyLines && std::any_of(text.begin(), text.end(), IsControl)) return false;
  // The prompt of another line may have come ahead of it.
  const PromptPlace prompt = FindPrompt(text, 0, true);
  if (prompt.Kind != PromptKind::None && prompt.At == 0) return false;
  if (SaysNoValue(text)) return true;
  const std::size_t length = ValueLength(question.Command);
  if (Holds(text, ">") || (length != 0 && text.size() != length)) return false;
  return question.Opening.empty() || FindAnyCase(text, question.Opening) == 1;
}

std::optional<std::string> ValueIn(const Conversation::Question& question, const Reply& reply) {
  using Bracket = Conversation::Question::Bracket;
  if (question.InValue == Bracket::Stays) return std::string(reply.Text);
  if (question.InValue == Bracket::Spoils && Holds(reply.Text, ">")) return std::nullopt;
  return ValueOf(reply);
}

}  // namespace

bool Conversation::Decided(const Reply& reply) const {
  switch (reply.Came) {
    case Reply::State::Whole:
      return true;
    case Reply::State::Bare:
      return QuietFor() >= bareQuiet;
    case Reply::State::Unechoed:
    case Reply::State::Damaged:
      return QuietFor() >= hurtQuiet;
    case Reply::State::Missing:
      break;
  }
  return false;
}

Reply Conversation::AwaitReply(const Question& question) {
  const ReplyForm form{.Command = question.Command,
                       .Echo = question.Echo,
                       .EarlierPrompts = late,
                       .PromptInText = question.InValue == Question::Bracket::Stays};
  const Duration silent = events.Now() + question.Limit;
  Reply reply;
  AwaitText(std::max(question.Limit, question.LimitOnceBegun), [&] {
    if (!HasBegun()) return events.Now() >= silent;
    // Without a prompt there is nothing to take apart.
    if (session.RxBuffer.View().find('>') == std::string_view::npos) return false;
    reply = FindReply(session.RxBuffer, form);
    return Decided(reply);
  });
  return reply;
}

std::optional<std::string> Conversation::Ask(const Question& question) {
  constexpr int attempts = 2;
  std::optional<std::string> doubtful;
  // A doubtful value holds if it comes a second time, also where the first reply was hurt.
  for (int attempt = 0; attempt < attempts + (doubtful ? 1 : 0); ++attempt) {
    if (attempt > 0 && AskingAgain) AskingAgain();
    Asked asked = AskOnce(question, doubtful);
    if (!asked.AskAgain) return asked.Value;
    if (asked.Value) doubtful = std::move(asked.Value);
  }
  return std::nullopt;
}

Conversation::Asked Conversation::AskOnce(const Question& question,
                                          const std::optional<std::string>& doubtful) {
  const int began = epoch;
  // What is still due would mix with the reply, which is known by its place alone.
  Settle();
  if (epoch != began) return {};
  Prime();
  Say(question.Command);
  if (question.FirstLook > Duration::zero()) {
    events.Sleep(question.FirstLook);
    // Also when the reply has come already: the windows must stay alive during a long run.
    if (hears == Hears::ByEvents) events.Pump();
  }
  const Reply reply = AwaitReply(question);
  // The line before may have lost its end: this one was then heard as a part of it.
  const bool joined = std::exchange(cameLast, reply.Came) == Reply::State::Missing;
  if (epoch != began || !Open() || reply.Came == Reply::State::Missing) return {};
  // Its prompt has come, even when damage hides it.
  due = 0;
  FollowEcho(question, reply);
  if (reply.Came != Reply::State::Whole) return {.AskAgain = true};
  return Judge(question, reply, joined, doubtful);
}

void Conversation::FollowEcho(const Question& question, const Reply& reply) {
  if (reply.EchoSeen) link.EchoIsOff = false;
  const bool wrongEcho =
      question.Echo ? reply.Came == Reply::State::Unechoed : reply.Came != Reply::State::Whole;
  if (wrongEcho) SwitchEcho(question.Echo);
}

Conversation::Asked Conversation::Judge(const Question& question, const Reply& reply, bool joined,
                                        const std::optional<std::string>& doubtful) {
  // RxBuffer may grow from here on.
  const std::string text(reply.Text);
  auto value = ValueIn(question, reply);
  if (IsLateReply()) return {.AskAgain = true};
  if (IsRefusal(text)) {
    if (question.TakesRefusal && !joined) return {.Value = std::move(value)};
    if (!question.Echo) SwitchEcho(false);
    return {.AskAgain = true};
  }
  const bool doubt = !IsLikely(question, text) && value != doubtful;
  return {.AskAgain = doubt, .Value = std::move(value)};
}

bool Conversation::IsLateReply() {
  if (late == 0) return false;
  const int before = late;
  const bool another = AwaitText(lateTime, [&] { return late < before; });
  late = 0;
  return another;
}

}  // namespace quillmark
