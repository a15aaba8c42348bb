#include "radio/reply.h"

#include "text/text.h"

namespace quillmark {

std::string_view Prompt(bool inSetupMode) { return inSetupMode ? "SETUP>" : ">"; }

std::optional<std::string> CutReply(std::string_view received, std::string_view word,
                                    bool inSetupMode) {
  const std::size_t echo = FindAnyCase(received, word);
  if (echo == 0) return std::nullopt;
  // A prompt ahead of the echo belongs to an earlier command.
  const std::size_t prompt = FindAnyCase(received, Prompt(inSetupMode), echo + word.size());
  if (prompt == 0) return std::nullopt;
  const auto start = static_cast<std::ptrdiff_t>(echo + word.size() + 2);
  return Mid(received, start, static_cast<std::ptrdiff_t>(prompt) - start - 2);
}

int CountPrompts(std::string_view received, bool inSetupMode) {
  const std::string_view prompt = Prompt(inSetupMode);
  int count = 0;
  for (std::size_t at = FindAnyCase(received, prompt); at != 0;
       at = FindAnyCase(received, prompt, at + prompt.size())) {
    ++count;
  }
  return count;
}

}  // namespace quillmark
