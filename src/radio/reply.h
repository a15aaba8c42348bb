#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// The prompt that ends a reply.
std::string_view Prompt(bool inSetupMode);

// Whether the echo of `word` is there and a prompt behind it. A prompt ahead of the echo belongs to
// an earlier command.
bool HasReply(std::string_view received, std::string_view word, bool inSetupMode);
// Whether that prompt stands at the head of a line, so that it is no ">" within the value.
bool ReplyIsWhole(std::string_view received, std::string_view word, bool inSetupMode);

// The text between the echo of `word` and the prompt that follows it, less the line end at each
// side. Nothing when the echo or the prompt is missing, or nothing is left between them.
std::optional<std::string> CutReply(std::string_view received, std::string_view word,
                                    bool inSetupMode);

// How many prompts stand behind the echo of `word`; with an empty word, in the whole text.
int CountPrompts(std::string_view received, std::string_view word, bool inSetupMode);

}  // namespace quillmark
