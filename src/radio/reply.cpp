#include "radio/reply.h"

#include "text/text.h"

namespace quillmark {

namespace {

struct Place {
  std::size_t Echo = 0;    // position of the word
  std::size_t Prompt = 0;  // position of the prompt behind it, 0 without one
};

// In setup mode a ">" may stand in a value. A bare prompt at the head of a line still ends it: the
// radio has left the mode meanwhile.
std::size_t FindPrompt(std::string_view received, std::size_t from, bool inSetupMode) {
  const std::size_t prompt = FindAnyCase(received, Prompt(inSetupMode), from);
  if (!inSetupMode) return prompt;
  const std::size_t lineEnd = Find(received, "\n>", from);
  if (lineEnd == 0) return prompt;
  return prompt == 0 || lineEnd + 1 < prompt ? lineEnd + 1 : prompt;
}

Place FindReply(std::string_view received, std::string_view word, bool inSetupMode) {
  const std::size_t echo = FindAnyCase(received, word);
  if (echo == 0) return {};
  return {echo, FindPrompt(received, echo + word.size(), inSetupMode)};
}

}  // namespace

std::string_view Prompt(bool inSetupMode) { return inSetupMode ? "SETUP>" : ">"; }

bool HasReply(std::string_view received, std::string_view word, bool inSetupMode) {
  return FindReply(received, word, inSetupMode).Prompt != 0;
}

bool ReplyIsWhole(std::string_view received, std::string_view word, bool inSetupMode) {
  const std::size_t prompt = FindReply(received, word, inSetupMode).Prompt;
  return prompt > 2 && received.substr(prompt - 3, 2) == "\r\n";
}

std::optional<std::string> CutReply(std::string_view received, std::string_view word,
                                    bool inSetupMode) {
  const Place place = FindReply(received, word, inSetupMode);
  if (place.Prompt == 0) return std::nullopt;
  const auto start = static_cast<std::ptrdiff_t>(place.Echo + word.size() + 2);
  return Mid(received, start, static_cast<std::ptrdiff_t>(place.Prompt) - start - 2);
}

int CountPrompts(std::string_view received, std::string_view word, bool inSetupMode) {
  Place place = FindReply(received, word, inSetupMode);
  int count = 0;
  while (place.Prompt != 0) {
    ++count;
    place.Prompt = FindPrompt(received, place.Prompt + Prompt(inSetupMode).size(), inSetupMode);
  }
  return count;
}

}  // namespace quillmark
