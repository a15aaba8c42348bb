#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// What the radio says, taken apart: prompts, echoes, values. Pure functions of the text; every one
// takes any text. Positions count from 0.

// What a prompt tells about the radio: its level, or that a report goes on.
enum class PromptKind { None, Command, Setup, Loader, More };

// A prompt: ">", "SETUP>", "LOADER>" or "MORE>" at the head of a line. A line's head is the start
// of the text, also behind the blank that primes the received text, the place behind a line feed,
// and the place behind another prompt.
struct PromptPlace {
  PromptKind Kind = PromptKind::None;
  std::size_t At = 0;
  std::size_t End = 0;  // the place behind it
};

// The first prompt at or behind `from`, which is the head of a line or not.
PromptPlace FindPrompt(std::string_view text, std::size_t from, bool fromIsHead);
// The prompt that ends the text; of kind None when it ends in something else.
PromptKind PromptAtEnd(std::string_view text);

// The reply to one command. It is laid out as echo, line end, text, line end, prompt; without the
// echo when that is off.
struct Reply {
  enum class State {
    Missing,   // no prompt so far
    Bare,      // the prompt alone: a reply to an earlier line, or one without a text
    Unechoed,  // a prompt, but the echo did not come
    Damaged,   // a line end between the pieces is not in order, or echo or line end stand twice
    Whole,
  };
  State Came = State::Missing;
  std::string_view Text{};               // between the line ends, when it is whole
  PromptKind Prompt = PromptKind::None;  // the one that ends it
  bool EchoSeen = false;
};

// What is known about a reply before it comes.
struct ReplyForm {
  std::string_view Command;   // as it was sent; the echo has the same letters
  bool Echo = true;           // the radio echoes
  int EarlierPrompts = 0;     // so many prompts of earlier lines may stand in front of the text
  bool PromptInText = false;  // the text may begin like a prompt, but for the line end behind it
};

Reply FindReply(std::string_view received, const ReplyForm& form);

// The value in a whole reply. A ">" in it ends it, and takes two characters in front of it along: a
// limit of the dialect, which does not hold in setup mode. Nothing when too little is left.
std::optional<std::string> ValueOf(const Reply& reply);

// The length of the value that `command` asks for, where radios always print the same one; else 0.
std::size_t ValueLength(std::string_view command);

// Whether the text says that the command was not taken.
bool IsRefusal(std::string_view text);
// Whether the text says, from its head on, that there is no such value in this radio, or not in its
// mode.
bool SaysNoValue(std::string_view text);

}  // namespace quillmark
