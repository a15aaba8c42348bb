#include "conversation/reply.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::size_t nowhere = std::string_view::npos;

// How each prompt is written.
struct PromptText {
  PromptKind Kind;
  std::string_view Text;
};
constexpr std::array<PromptText, 4> prompts{{{PromptKind::Command, ">"},
                                             {PromptKind::Setup, "SETUP>"},
                                             {PromptKind::Loader, "LOADER>"},
                                             {PromptKind::More, "MORE>"}}};

PromptPlace PromptAt(std::string_view text, std::size_t at) {
  for (const PromptText& each : prompts) {
    if (text.substr(at).starts_with(each.Text)) return {each.Kind, at, at + each.Text.size()};
  }
  return {};
}

bool IsHead(std::string_view text, std::size_t at) {
  return at == 0 || text[at - 1] == '\n' || (at == 1 && text[0] == ' ');
}

// The place behind the echo, whose line end may still be on its way.
std::size_t BehindEcho(std::string_view text, std::string_view command) {
  if (command.empty()) return text.starts_with(' ') ? 1 : 0;
  std::size_t promptEnd = nowhere;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool head = IsHead(text, at) || at == promptEnd;
    if (!head) continue;
    const std::string_view rest = text.substr(at);
    if (rest.starts_with(command)) {
      const std::string_view behind = rest.substr(command.size());
      if (behind.empty() || behind.starts_with('\r') || behind.starts_with('\n'))
        return at + command.size();
    }
    const PromptPlace prompt = PromptAt(text, at);
    if (prompt.Kind != PromptKind::None) promptEnd = prompt.End;
  }
  return nowhere;
}

// The place where the reply's own text begins, behind prompts that answer earlier lines; the text
// ahead of it is the echo's line end. A radio may show such a prompt also within the echo, between
// its letters and its line end.
std::size_t SkipEarlierPrompts(std::string_view text, std::size_t at, int earlier) {
  for (int left = earlier; left > 0; --left) {
    const std::size_t head = text.substr(at).starts_with(lineEnd) ? at + lineEnd.size() : at;
    const PromptPlace prompt = PromptAt(text.substr(0, text.size()), head);
    if (prompt.Kind == PromptKind::None) break;
    // Behind the last prompt so far nothing can be told yet.
    if (prompt.End == text.size()) break;
    at = prompt.End;
  }
  return at;
}

// A line end that has lost one of its characters, or got one more.
bool HasHurtLineEnd(std::string_view text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text.substr(at).starts_with(lineEnd)) {
      ++at;
    } else if (text[at] == '\r' || text[at] == '\n') {
      return true;
    }
  }
  return false;
}

PromptPlace FindLastPrompt(std::string_view text, bool head, bool promptInText) {
  PromptPlace prompt = FindPrompt(text, 0, head);
  while (promptInText && prompt.Kind != PromptKind::None &&
         !text.substr(prompt.End, 1).starts_with('\r') && prompt.End != text.size()) {
    prompt = FindPrompt(text, prompt.End, false);
  }
  return prompt;
}

Reply Judge(std::string_view body, bool headAhead, bool promptInText) {
  Reply reply;
  std::string_view rest = body;
  const bool ahead = rest.starts_with(lineEnd);
  if (ahead) rest.remove_prefix(lineEnd.size());
  const PromptPlace prompt = FindLastPrompt(rest, ahead || headAhead, promptInText);
  if (prompt.Kind == PromptKind::None) {
    // A prompt whose line end was hurt looks like a part of the text.
    if (rest.ends_with('>')) reply.Came = Reply::State::Damaged;
    return reply;
  }
  reply.Prompt = prompt.Kind;
  const std::string_view text = rest.substr(0, prompt.At);
  if (text.empty()) {
    reply.Came = Reply::State::Bare;
  } else if ((!ahead && !headAhead) || !text.ends_with(lineEnd) || HasHurtLineEnd(text)) {
    reply.Came = Reply::State::Damaged;
  } else {
    reply.Came = Reply::State::Whole;
    reply.Text = text.substr(0, text.size() - lineEnd.size());
  }
  return reply;
}

// A late reply to the same command has brought its echo along, or the radio echoes although its
// echo is off.
bool BeginsWithEcho(std::string_view text, std::string_view command) {
  return !command.empty() && text.starts_with(command) &&
         text.substr(command.size()).starts_with(lineEnd);
}

bool HoldsAny(std::string_view text, std::initializer_list<std::string_view> wordings) {
  return std::any_of(wordings.begin(), wordings.end(),
                     [text](std::string_view words) { return Contains(text, words); });
}

}  // namespace

PromptPlace FindPrompt(std::string_view text, std::size_t from, bool fromIsHead) {
  bool head = fromIsHead;
  for (std::size_t at = from; at < text.size(); ++at) {
    if (head) {
      const PromptPlace prompt = PromptAt(text, at);
      if (prompt.Kind != PromptKind::None) return prompt;
    }
    head = text[at] == '\n';
  }
  return {};
}

PromptKind PromptAtEnd(std::string_view text) {
  if (!text.ends_with('>')) return PromptKind::None;
  // Prompts may follow each other; the last one counts.
  const std::size_t line = text.rfind('\n');
  std::size_t at = line == nowhere ? (text.starts_with(' ') ? 1 : 0) : line + 1;
  PromptPlace last;
  while (at < text.size()) {
    last = PromptAt(text, at);
    if (last.Kind == PromptKind::None) return PromptKind::None;
    at = last.End;
  }
  return last.Kind;
}

Reply FindReply(std::string_view received, const ReplyForm& form) {
  const std::size_t echoEnd =
      form.Echo ? BehindEcho(received, form.Command) : (received.starts_with(' ') ? 1 : 0);
  if (echoEnd == nowhere) {
    Reply reply;
    if (PromptAtEnd(received) != PromptKind::None) reply.Came = Reply::State::Unechoed;
    return reply;
  }
  const std::size_t start = SkipEarlierPrompts(received, echoEnd, form.EarlierPrompts);
  Reply reply = Judge(received.substr(start), start != echoEnd, form.PromptInText);
  reply.EchoSeen = form.Echo && !form.Command.empty();
  // A line end in front of the text answers a carriage return that came twice.
  if (reply.Came == Reply::State::Whole &&
      (BeginsWithEcho(reply.Text, form.Command) || reply.Text.starts_with(lineEnd))) {
    reply.Came = Reply::State::Damaged;
    reply.Text = {};
  }
  return reply;
}

std::optional<std::string> ValueOf(const Reply& reply) {
  const std::size_t end = reply.Text.find('>');
  if (end == nowhere || reply.Prompt == PromptKind::Setup) return std::string(reply.Text);
  constexpr std::size_t takenAlong = 2;
  if (end < takenAlong) return std::nullopt;
  return std::string(reply.Text.substr(0, end - takenAlong));
}

std::size_t ValueLength(std::string_view command) {
  struct Example {
    std::string_view Command, Value;
  };
  constexpr std::array<Example, 4> examples{{{"mode", "MODE M"},
                                             {"pwr", "PWR 30 dBm"},
                                             {"amask", "MASK: FFFF FFFF"},
                                             {"xmap", "XMAP 00000000"}}};
  const auto* const at = std::find_if(examples.begin(), examples.end(), [&](const Example& each) {
    return EqualAnyCase(each.Command, command);
  });
  return at == examples.end() ? 0 : at->Value.size();
}

bool IsRefusal(std::string_view text) {
  return HoldsAny(text, {"INVALID COMMAND", "INVALID ENTRY", "ACCESS DENIED"});
}

bool SaysNoValue(std::string_view text) {
  constexpr std::array<std::string_view, 4> wordings{"n/a", "NOT ", "SELECTED OPTION",
                                                     "PROGRAMMABLE ONLY"};
  return std::any_of(wordings.begin(), wordings.end(),
                     [text](std::string_view words) { return FindAnyCase(text, words) == 1; });
}

}  // namespace quillmark
